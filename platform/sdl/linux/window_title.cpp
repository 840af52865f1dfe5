#include "platform/sdl/linux/window_title.h"

#include <SDL_syswm.h>
#include <SDL_video.h>

namespace platform
{

void setTitle(SDL_Window *window, const std::string &title)
{
    SDL_SysWMinfo info{};
    SDL_VERSION(&info.version);
    if (!SDL_GetWindowWMInfo(window, &info) || info.subsystem != SDL_SYSWM_X11) {
        SDL_SetWindowTitle(window, title.c_str());
        return;
    }
    Display *display = info.info.x11.display;
    for (const char *name : {"WM_NAME", "_NET_WM_NAME"}) {
        constexpr int kBitsOfByte = 8;
        XChangeProperty(display, info.info.x11.window, XInternAtom(display, name, False),
                        XInternAtom(display, "UTF8_STRING", False), kBitsOfByte, PropModeReplace,
                        reinterpret_cast<const unsigned char *>(title.data()),
                        static_cast<int>(title.size()));
    }
    XFlush(display);
}

} // namespace platform
