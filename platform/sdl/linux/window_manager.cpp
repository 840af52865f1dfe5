#include "platform/sdl/linux/window_manager.h"

#include <optional>

#include <SDL_syswm.h>
#include <X11/Xatom.h>

namespace platform
{
namespace
{

using XWindow = ::Window;

/// A window's property that holds the id of a window. @return nothing when it has none.
std::optional<XWindow> windowProperty(Display *display, XWindow owner, Atom name)
{
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char *data = nullptr;
    if (XGetWindowProperty(display, owner, name, 0, 1, False, XA_WINDOW, &type, &format, &count, &left,
                           &data) != Success)
        return std::nullopt;
    std::optional<XWindow> value;
    if (data && count == 1)
        value = *reinterpret_cast<const XWindow *>(data);
    if (data)
        XFree(data);
    return value;
}

int ignoreError(Display *, XErrorEvent *) { return 0; }

} // namespace

bool hasWindowManager(SDL_Window *window)
{
    SDL_SysWMinfo info{};
    SDL_VERSION(&info.version);
    if (!SDL_GetWindowWMInfo(window, &info) || info.subsystem != SDL_SYSWM_X11)
        return true;
    Display *display = info.info.x11.display;
    const Atom name = XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False);
    const std::optional<XWindow> manager = windowProperty(display, DefaultRootWindow(display), name);
    if (!manager)
        return false;
    // The property outlives a window manager that has gone; its window, which names itself, does not.
    XErrorHandler before = XSetErrorHandler(ignoreError);
    const bool lives = windowProperty(display, *manager, name) == manager;
    XSetErrorHandler(before);
    return lives;
}

} // namespace platform
