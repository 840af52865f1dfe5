#include "platform/sdl/windows/window_messages.h"

#include <SDL_events.h>
#include <SDL_syswm.h>

namespace platform
{

void WindowMessages::note(const SDL_Event &event)
{
    constexpr LPARAM kWasDown = 1 << 30;
    const auto &message = event.syswm.msg->msg.win;
    switch (message.msg) {
    case WM_QUERYENDSESSION:
        sessionEnds_ = true;
        break;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        lastPressIsOld_ = (message.lParam & kWasDown) != 0;
        break;
    default:
        break;
    }
}

} // namespace platform
