#include "platform/virtual/virtual_device.h"

#include <cstdlib>
#include <utility>

#include "platform/common/host_path.h"

namespace platform
{

VirtualDevice &VirtualDevice::instance()
{
    static VirtualDevice device;
    return device;
}

void VirtualDevice::reset() { instance() = VirtualDevice(); }

void VirtualDevice::switchOn(std::uint32_t tick) { tick_ = startTick = tick; }

void VirtualDevice::advance(std::uint32_t milliseconds)
{
    tick_ += milliseconds;
    if (milliseconds != 0)
        idlePolls = 0;
}

void VirtualDevice::schedule(std::uint32_t atMs, std::function<void()> action)
{
    actions.push_back({atMs, std::move(action)});
}

void VirtualDevice::post(std::uint32_t message, std::uint32_t wParam, std::uint32_t lParam)
{
    messages.push_back({nullptr, message, wParam, static_cast<std::int32_t>(lParam)});
}

void VirtualDevice::leaveForeground()
{
    foreground = false;
    post(WM_ACTIVATE, 0, 0);
    post(WM_KILLFOCUS, 0, 0);
}

void VirtualDevice::enterForeground()
{
    foreground = true;
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

void VirtualDevice::note(const std::string &call)
{
    if (recordCalls)
        calls.push_back(call);
}

bool VirtualDevice::poll(MSG &message)
{
    if (onPoll)
        onPoll();
    carryOutDueActions();
    if (messages.empty()) {
        countIdlePoll();
        return false;
    }
    message = messages.front();
    messages.pop_front();
    idlePolls = 0;
    return true;
}

void VirtualDevice::carryOutDueActions()
{
    while (!actions.empty() && tick_ - startTick >= actions.front().atMs) {
        const auto action = std::move(actions.front().action);
        actions.pop_front();
        action();
    }
}

void VirtualDevice::countIdlePoll()
{
    if (++idlePolls == kPollsWithoutEnd && onStandstill)
        onStandstill();
}

std::string VirtualDevice::hostPath(const std::u16string &path) const
{
    const std::size_t nameStart = executable.rfind(u'\\') + 1;
    const std::u16string name = path.substr(path.size() < nameStart ? path.size() : nameStart);
    if (name.empty() || path.compare(0, nameStart, executable, 0, nameStart) != 0 ||
        hiddenFiles.contains(name))
        return "";
    return dataFolder + '/' + common::toHostPath(name);
}

} // namespace platform
