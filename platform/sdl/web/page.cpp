#include "platform/sdl/web/page.h"

#include <emscripten.h>

#include <SDL_events.h>
#include <SDL_video.h>

#include "platform/sdl/event_handler.h"

namespace platform
{
namespace
{

void push(SDL_Event event) { SDL_PushEvent(&event); }

void pushWindowEvent(SDL_WindowEventID change)
{
    SDL_WindowEvent event{};
    event.type = SDL_WINDOWEVENT;
    event.event = static_cast<std::uint8_t>(change);
    push({.window = event});
}

void pushButton(SDL_EventType type, int x, int y)
{
    SDL_MouseButtonEvent event{};
    event.type = type;
    event.button = SDL_BUTTON_LEFT;
    event.x = x;
    event.y = y;
    push({.button = event});
}

} // namespace

void Page::setRefresh(double time)
{
    using Clock = RealTime::Clock;
    using Milliseconds = std::chrono::duration<double, std::milli>;
    refresh = Clock::time_point(std::chrono::duration_cast<Clock::duration>(Milliseconds(time)));
}

Page &page()
{
    static Page page;
    return page;
}

} // namespace platform

// What the page calls, by these names with an underscore before them. Places are counted in the display's
// pixels from the top left of the room that the page has for the picture; the one pointer that the page
// passes on is the mouse.
extern "C" {

EMSCRIPTEN_KEEPALIVE void resizeRoom(int width, int height)
{
    if (platform::page().window)
        SDL_SetWindowSize(platform::page().window, width, height);
}

EMSCRIPTEN_KEEPALIVE void setRefreshRate(int rate)
{
    platform::page().refreshRate = rate;
    platform::pushWindowEvent(SDL_WINDOWEVENT_DISPLAY_CHANGED);
}

/// Asks the program to end.
EMSCRIPTEN_KEEPALIVE void quit()
{
    SDL_QuitEvent event{};
    event.type = SDL_QUIT;
    platform::push({.quit = event});
}

EMSCRIPTEN_KEEPALIVE void gainFocus() { platform::pushWindowEvent(SDL_WINDOWEVENT_FOCUS_GAINED); }
EMSCRIPTEN_KEEPALIVE void loseFocus() { platform::pushWindowEvent(SDL_WINDOWEVENT_FOCUS_LOST); }

EMSCRIPTEN_KEEPALIVE void pressPointer(int x, int y) { platform::pushButton(SDL_MOUSEBUTTONDOWN, x, y); }
EMSCRIPTEN_KEEPALIVE void releasePointer(int x, int y) { platform::pushButton(SDL_MOUSEBUTTONUP, x, y); }

EMSCRIPTEN_KEEPALIVE void movePointer(int x, int y)
{
    SDL_MouseMotionEvent event{};
    event.type = SDL_MOUSEMOTION;
    event.x = x;
    event.y = y;
    platform::push({.motion = event});
}

EMSCRIPTEN_KEEPALIVE void cancelPointer()
{
    SDL_UserEvent event{};
    event.type = platform::kPointerCancelled;
    platform::push({.user = event});
}

EMSCRIPTEN_KEEPALIVE void pressEscape()
{
    SDL_KeyboardEvent event{};
    event.type = SDL_KEYDOWN;
    event.keysym.sym = SDLK_ESCAPE;
    platform::push({.key = event});
}
}
