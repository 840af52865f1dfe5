#pragma once

#include <cstdint>

#include <SDL_keyboard.h>

#include "platform/sdl/message_queue.h"

namespace platform
{

/// Turns eight keys of the keyboard into the handheld's hardware buttons: Escape, Enter, Space, Backspace and
/// the arrows. The game ends at any button that it does not know, so no other key may get through, nor one
/// that is part of a chord.
class Buttons
{
public:
    explicit Buttons(MessageQueue &messages) : messages(messages) {}

    /// Not to be called for the keyboard's repetitions. A press together with Alt, Ctrl or Super is no
    /// button.
    void press(SDL_Keycode key, std::uint16_t modifiers);

    /// Sent only when the press was.
    void release(SDL_Keycode key);

    /// The keyboard is another window's now: the releases of what is down go there.
    void forget() { down = 0; }

private:
    MessageQueue &messages;
    std::uint32_t down = 0; ///< A bit for each button whose press was sent.
};

} // namespace platform
