#pragma once

#include <bitset>

union SDL_Event;

namespace platform
{

/// The keys that were down already when the window came to the front, such as the Enter that started the
/// program from a terminal. The X server repeats them, and SDL takes the first repetition for a press; but
/// the server also says which keys are down, right after it gives the window the keyboard.
class HeldKeys
{
public:
    /// The window has the keyboard now.
    void begin();

    /// To be told every event of the window system, an SDL_SYSWMEVENT, in order.
    void note(const SDL_Event &event);

    /// Whether the press last noted is one of a key that was down all the time.
    bool lastPressIsOld() const { return held_.test(lastPressed_); }

private:
    static constexpr int kKeyCodes = 256;

    bool stateExpected_ = false;
    std::bitset<kKeyCodes> held_;
    unsigned char lastPressed_ = 0; ///< 0 is no key.
};

} // namespace platform
