#include "platform/desktop/window_manager.h"

#include <SDL_syswm.h>

namespace platform
{

bool hasWindowManager(SDL_Window *window)
{
    SDL_SysWMinfo info{};
    SDL_VERSION(&info.version);
    if (!SDL_GetWindowWMInfo(window, &info) || info.subsystem != SDL_SYSWM_X11)
        return true;
    Display *display = info.info.x11.display;
    const Atom name = XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display), name, 0, 1, False, AnyPropertyType, &type,
                       &format, &count, &left, &data);
    if (data)
        XFree(data);
    return count != 0;
}

} // namespace platform
