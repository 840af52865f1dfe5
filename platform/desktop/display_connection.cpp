#include "platform/desktop/display_connection.h"

#include <SDL_syswm.h>

namespace platform
{
namespace
{

bool displayLost = false;

int noteLoss(Display *)
{
    displayLost = true;
    return 0;
}

/// In place of the one that ends the process.
void goOn(Display *, void *) {}

} // namespace

void surviveLossOfDisplay(SDL_Window *window)
{
    SDL_SysWMinfo info{};
    SDL_VERSION(&info.version);
    if (!SDL_GetWindowWMInfo(window, &info) || info.subsystem != SDL_SYSWM_X11)
        return;
    XSetIOErrorHandler(noteLoss);
    XSetIOErrorExitHandler(info.info.x11.display, goOn, nullptr);
}

bool isDisplayLost() { return displayLost; }

} // namespace platform
