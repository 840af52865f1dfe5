#pragma once

#include <cstdint>
#include <optional>

#include "platform/sdl/message_queue.h"
#include "platform/sdl/screen_layout.h"

namespace platform
{

/// What can act as the stylus: the mouse's left button, or one finger of a touch screen.
struct Pointer {
    enum class Kind { Mouse, Finger };

    Kind kind;
    std::int64_t finger; ///< Which one, 0 for the mouse.

    bool operator==(const Pointer &) const = default;
};

/// Turns mouse and fingers into the one stylus of the handheld. The first pointer that presses inside the
/// picture is the stylus until it is released; meanwhile the others do not exist. Places are screen pixels as
/// `toScreen` gives them, also outside the screen.
class Stylus
{
public:
    explicit Stylus(MessageQueue &messages) : messages_(messages) {}

    /// A press outside the picture is nobody's.
    void press(Pointer pointer, Point pixel);

    /// Sends the nearest picture pixel, when that is another one than before.
    void move(Pointer pointer, Point pixel);

    /// Releases at the nearest picture pixel.
    void release(Pointer pointer, Point pixel);

    /// Drops the tap: no message stands for a lift that did not happen, and the real release is ignored.
    void cancel() { owner_.reset(); }

private:
    MessageQueue &messages_;
    std::optional<Pointer> owner_;
    Point last_{};
};

} // namespace platform
