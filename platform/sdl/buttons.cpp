#include "platform/sdl/buttons.h"

namespace platform
{
namespace
{

constexpr int kChordModifiers = KMOD_ALT | KMOD_CTRL | KMOD_GUI;

/// `virtualKey` is the code by which the handheld knows the button.
struct Button {
    SDL_Keycode key;
    std::uint32_t virtualKey;
};

constexpr Button kButtons[] = {
    {SDLK_BACKSPACE, 0x08}, {SDLK_RETURN, 0x0D}, {SDLK_ESCAPE, 0x1B}, {SDLK_SPACE, 0x20},
    {SDLK_LEFT, 0x25},      {SDLK_UP, 0x26},     {SDLK_RIGHT, 0x27},  {SDLK_DOWN, 0x28},
};

/// Null for a key that is no button.
const Button *findButton(SDL_Keycode key)
{
    for (const Button &button : kButtons) {
        if (button.key == key)
            return &button;
    }
    return nullptr;
}

std::uint32_t bitOf(const Button *button) { return 1u << (button - kButtons); }

} // namespace

void Buttons::press(SDL_Keycode key, std::uint16_t modifiers)
{
    const Button *button = findButton(key);
    if (!button || (modifiers & kChordModifiers) != 0)
        return;
    down |= bitOf(button);
    messages.post(WM_KEYDOWN, button->virtualKey);
}

void Buttons::release(SDL_Keycode key)
{
    const Button *button = findButton(key);
    if (!button || (down & bitOf(button)) == 0)
        return;
    down &= ~bitOf(button);
    messages.post(WM_KEYUP, button->virtualKey);
}

} // namespace platform
