#include "platform/sdl/linux/held_keys.h"

#include <SDL_events.h>
#include <SDL_syswm.h>

namespace platform
{
namespace
{

template <std::size_t kSize> std::bitset<kSize> keysDown(const XKeymapEvent &state)
{
    std::bitset<kSize> keys;
    for (std::size_t code = 0; code < kSize; ++code)
        keys.set(code, (state.key_vector[code / 8] >> (code % 8) & 1) != 0);
    return keys;
}

} // namespace

void HeldKeys::begin()
{
    stateExpected_ = true;
    held_.reset();
}

void HeldKeys::note(const SDL_Event &event)
{
    const SDL_SysWMmsg *message = event.syswm.msg;
    if (message->subsystem != SDL_SYSWM_X11)
        return;
    const XEvent &x = message->msg.x11.event;
    if (x.type == KeymapNotify && stateExpected_) {
        stateExpected_ = false;
        held_ = keysDown<kKeyCodes>(x.xkeymap);
    } else if (x.type == KeyPress) {
        lastPressed_ = static_cast<unsigned char>(x.xkey.keycode);
    } else if (x.type == KeyRelease) {
        held_.reset(x.xkey.keycode);
    }
}

} // namespace platform
