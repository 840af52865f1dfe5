#include "platform/sdl/linux/display_connection.h"

#include <cstdio>
#include <cstdlib>

#include <SDL_syswm.h>

namespace platform
{
namespace
{

Display *survived = nullptr; ///< Null until there is one whose loss is survived.
bool displayNeeded = false;  ///< Whether a call waits for the server.
bool displayLost = false;

/// Ends the process before Xlib does, which reports an error for any display that is not survived.
int noteLoss(Display *display)
{
    if (display != survived || displayNeeded) {
        std::fflush(nullptr);
        std::_Exit(EXIT_SUCCESS);
    }
    displayLost = true;
    return 0;
}

/// In place of the one that ends the process.
void goOn(Display *, void *) {}

} // namespace

void endWithDisplay() { XSetIOErrorHandler(noteLoss); }

void surviveLossOfDisplay(SDL_Window *window)
{
    SDL_SysWMinfo info{};
    SDL_VERSION(&info.version);
    if (!SDL_GetWindowWMInfo(window, &info) || info.subsystem != SDL_SYSWM_X11)
        return;
    survived = info.info.x11.display;
    XSetIOErrorExitHandler(survived, goOn, nullptr);
}

bool isDisplayLost() { return displayLost; }

DisplayNeeded::DisplayNeeded() { displayNeeded = true; }
DisplayNeeded::~DisplayNeeded() { displayNeeded = false; }

} // namespace platform
