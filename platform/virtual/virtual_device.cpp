#include "platform/virtual/virtual_device.h"

#include <cstdlib>
#include <utility>

#include "platform/common/device_path.h"
#include "platform/common/refresh_grid.h"

namespace platform
{

void VirtualDevice::switchOn(Tick tick)
{
    startTick_ = tick;
    elapsedMs_ = 0;
}

void VirtualDevice::advance(std::uint32_t milliseconds)
{
    elapsedMs_ += milliseconds;
    if (milliseconds != 0)
        idlePolls_ = 0;
}

void VirtualDevice::schedule(std::uint32_t atMs, std::function<void()> action)
{
    actions_.push_back({atMs, std::move(action)});
}

void VirtualDevice::post(std::uint32_t message, std::uint32_t wParam, std::uint32_t lParam)
{
    messages_.push_back({nullptr, message, wParam, static_cast<std::int32_t>(lParam)});
}

void VirtualDevice::leaveForeground()
{
    foreground_ = false;
    post(WM_ACTIVATE, 0, 0);
    post(WM_KILLFOCUS, 0, 0);
}

void VirtualDevice::enterForeground()
{
    foreground_ = true;
    post(WM_ACTIVATE, 1, 0);
    post(WM_SETFOCUS, 0, 0);
}

std::byte *VirtualDevice::topLeft()
{
    const auto rows = static_cast<std::ptrdiff_t>(display.cyHeight) - 1;
    const auto columns = static_cast<std::ptrdiff_t>(display.cxWidth) - 1;
    const std::ptrdiff_t down = rows * display.cbyPitch;
    const std::ptrdiff_t across = columns * display.cbxPitch;
    if (frameBuffer.empty())
        frameBuffer.resize(static_cast<std::size_t>(std::abs(down) + std::abs(across) + display.cBPP / 8));
    return frameBuffer.data() - (down < 0 ? down : 0) - (across < 0 ? across : 0);
}

void *VirtualDevice::beginDraw() { return displayError || !frameBufferOn ? nullptr : topLeft(); }

void VirtualDevice::endDraw()
{
    if (onFrame)
        onFrame();
    if (refreshRate == 0)
        advance(frameCostMs);
    else
        advance(static_cast<std::uint32_t>(common::afterFrameMs(elapsedMs_, refreshRate) - elapsedMs_));
}

void VirtualDevice::startSound(const std::string &hostFile)
{
    sounds.push_back(hostFile.substr(hostFile.rfind('/') + 1));
}

bool VirtualDevice::poll(MSG &message)
{
    if (onPoll)
        onPoll();
    carryOutDueActions();
    if (messages_.empty()) {
        countIdlePoll();
        return false;
    }
    message = messages_.front();
    messages_.pop_front();
    idlePolls_ = 0;
    return true;
}

void VirtualDevice::carryOutDueActions()
{
    // By the 32-bit difference of ticks, which wraps, as a program would compute it.
    while (!actions_.empty() && tick() - startTick_ >= actions_.front().atMs) {
        const auto action = std::move(actions_.front().action);
        actions_.pop_front();
        action();
    }
}

void VirtualDevice::countIdlePoll()
{
    if (++idlePolls_ == kPollsWithoutEnd && onStandstill)
        onStandstill();
}

std::string VirtualDevice::hostFile(const std::u16string &path) const
{
    const std::size_t nameStart = executable.rfind(u'\\') + 1;
    const std::u16string name = path.substr(path.size() < nameStart ? path.size() : nameStart);
    if (name.empty() || path.compare(0, nameStart, executable, 0, nameStart) != 0 ||
        hiddenFiles.contains(name))
        return "";
    return dataFolder + '/' + common::toHostPath(name);
}

} // namespace platform
