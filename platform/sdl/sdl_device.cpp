#include "platform/sdl/sdl_device.h"

#include <chrono>

#include <SDL_error.h>
#include <SDL_events.h>

#include "platform/common/data_folder.h"
#include "platform/common/device_path.h"
#include "platform/common/executable_path.h"

namespace platform
{
namespace
{

constexpr char kIconFile[] = "icon-64.png";

/// Longest wait in the background: how late a request from another copy may be noticed.
constexpr int kBackgroundWaitMs = 100;

constexpr std::uint32_t kPixelBytes = sizeof(Frame::value_type);

/// "A device attached to the system is not functioning."
constexpr std::uint32_t ERROR_GEN_FAILURE = 31;

} // namespace

SdlDevice::SdlDevice() : dataFolder_(common::dataFolder()) {}

bool SdlDevice::createWindow(const std::string &title)
{
    const bool created = window_.create(title, dataFolder_ + kIconFile);
    if (!created)
        windowError_ = SDL_GetError();
    return created;
}

bool SdlDevice::poll(MSG &message)
{
    if (messages_.take(message))
        return true;
    // In the background only `sleep` looks for what happens: what brings the window to the front is polled
    // after the clock has moved.
    if (inForeground())
        pump();
    return messages_.take(message);
}

void SdlDevice::pump()
{
    if (!window_.exists())
        return;
    SDL_PumpEvents();
    if (host_->isDisplayLost()) {
        endSession();
        return;
    }
    SDL_Event event;
    while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) > 0)
        events_.handle(event);
    if (host_->takeTerminationRequest())
        messages_.post(WM_QUIT);
    if (host_->takeRaiseRequest())
        window_.raise();
    events_.keepTime();
    if (events_.takePictureLost())
        repairPicture();
}

void SdlDevice::endSession()
{
    displayOpen_ = false;
    window_.abandon();
    messages_.post(WM_QUERYENDSESSION);
}

void SdlDevice::repairPicture()
{
    clock_.setRefreshRate(pacer_.setRefreshRate(window_.refreshRate()));
    window_.presenter()->invalidate();
    damage_ = kWholeWindow;
    // In the background no frame follows that would show it.
    if (displayOpen_ && !inForeground() && present(damage_))
        damage_ = kNoDamage;
}

bool SdlDevice::present(const Damage &damage) { return window_.presenter()->present(shown_, damage); }

std::uint32_t SdlDevice::openDisplay()
{
    displayOpen_ = window_.exists() && window_.presenter()->isReady();
    return displayOpen_ ? 0 : ERROR_GEN_FAILURE;
}

GXDisplayProperties SdlDevice::displayProperties() const
{
    return {kScreenSize.width, kScreenSize.height, kPixelBytes, kScreenSize.width * kPixelBytes,
            kPixelBytes * 8,   kfDirect565};
}

void SdlDevice::endDraw()
{
    if (clock_.standsBeforeRefresh()) {
        clock_.moveToRefresh(pacer_.takeMissed());
        return;
    }
    VerticalSync sync = VerticalSync::Off;
    const RowSpan changed = differingRows(drawn_, shown_);
    damage_ = {spanOver(damage_.rows, changed), damage_.surroundings};
    if (displayOpen_ && !damage_.empty()) {
        shown_ = drawn_;
        if (present(damage_))
            damage_ = kNoDamage;
        sync = window_.presenter()->verticalSync();
    }
    clock_.passRefreshes(pacer_.wait(sync));
}

void SdlDevice::sleep(std::uint32_t milliseconds)
{
    if (window_.exists() && !inForeground()) {
        if (host_->time().waits())
            SDL_WaitEventTimeout(nullptr, kBackgroundWaitMs);
        pump();
        if (!inForeground())
            return;
        pacer_.restart();
    } else {
        RealTime &time = host_->time();
        time.sleepUntil(time.now() + std::chrono::milliseconds(milliseconds));
    }
    clock_.pass(milliseconds);
}

std::u16string SdlDevice::programPath() const
{
    const std::string path = common::executablePath();
    return common::toDevicePath(dataFolder_ + path.substr(path.rfind('/') + 1));
}

std::string SdlDevice::hostFile(const std::u16string &path) const { return common::toHostPath(path); }

} // namespace platform
