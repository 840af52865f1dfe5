#include "platform/desktop/desktop_device.h"

#include <chrono>
#include <thread>

#include "platform/desktop/display_connection.h"
#include "platform/desktop/program_folder.h"
#include "platform/desktop/termination.h"

namespace platform
{
namespace
{

constexpr char kIconFile[] = "icon-64.png";

/// Longest wait in the background: how late a request from another copy may be noticed.
constexpr int kBackgroundWaitMs = 100;

} // namespace

DesktopDevice &DesktopDevice::instance()
{
    static DesktopDevice device;
    return device;
}

DesktopDevice::DesktopDevice() { catchTerminationSignals(); }

bool DesktopDevice::createWindow(const char *title)
{
    return window.create(title, programFolder() + kIconFile);
}

bool DesktopDevice::poll(MSG &message)
{
    if (messages.take(message))
        return true;
    pump();
    return messages.take(message);
}

void DesktopDevice::pump()
{
    if (!window.exists())
        return;
    SDL_PumpEvents();
    if (isDisplayLost()) {
        endSession();
        return;
    }
    SDL_Event event;
    while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) > 0)
        events.handle(event);
    if (takeTerminationRequest())
        messages.post(WM_QUIT);
    if (singleInstance.takeRaiseRequest())
        window.raise();
    if (events.takePictureLost())
        repairPicture();
}

void DesktopDevice::endSession()
{
    displayOpen = false;
    window.abandon();
    messages.post(WM_QUERYENDSESSION);
}

void DesktopDevice::repairPicture()
{
    pacer.setRefreshRate(window.refreshRate());
    window.presenter()->invalidate();
    stale = kAllRows;
    // In the background no frame follows that would show it.
    if (displayOpen && !inForeground()) {
        window.presenter()->present(shown, stale);
        stale = {};
    }
}

bool DesktopDevice::openDisplay()
{
    displayOpen = window.exists() && window.presenter()->isReady();
    return displayOpen;
}

void DesktopDevice::endFrame()
{
    VerticalSync sync = VerticalSync::Off;
    const RowSpan changed = stale.empty() ? differingRows(drawn, shown) : stale;
    if (displayOpen && !changed.empty()) {
        shown = drawn;
        window.presenter()->present(shown, changed);
        sync = window.presenter()->verticalSync();
        stale = {};
    }
    pacer.wait(sync);
    clock.sample();
}

void DesktopDevice::sleep(std::uint32_t milliseconds)
{
    if (window.exists() && !inForeground())
        SDL_WaitEventTimeout(nullptr, kBackgroundWaitMs);
    else if (milliseconds != 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    clock.sample();
}

} // namespace platform
