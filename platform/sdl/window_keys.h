/// The keys of a window that are the device's own, not the program's.
#pragma once

#include <SDL_keyboard.h>

namespace platform
{

inline bool togglesFullScreen(const SDL_Keysym &key)
{
    const bool alt = (key.mod & KMOD_ALT) != 0;
    const bool others = (key.mod & (KMOD_CTRL | KMOD_GUI | KMOD_SHIFT)) != 0;
    return !others && (alt ? key.sym == SDLK_RETURN : key.sym == SDLK_F11);
}

/// Only the key alone: what belongs to a chord is the desktop's.
inline bool isEscape(const SDL_Keysym &key)
{
    constexpr int kModifiers = KMOD_ALT | KMOD_CTRL | KMOD_SHIFT | KMOD_GUI;
    return key.sym == SDLK_ESCAPE && (key.mod & kModifiers) == 0;
}

} // namespace platform
