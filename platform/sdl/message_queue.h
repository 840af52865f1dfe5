#pragma once

#include <cstdint>
#include <deque>

#include "platform/sdl/screen_layout.h"
#include "platform/window.h"

namespace platform
{

/// The window messages that wait to be taken, oldest first.
class MessageQueue
{
public:
    void post(std::uint32_t message, std::uint32_t wParam = 0, std::int32_t lParam = 0);

    /// A message of the stylus; the place must be on the screen.
    void postStylus(std::uint32_t message, Point pixel);

    /// @return false, leaving the argument alone, when none waits.
    bool take(MSG &message);

private:
    std::deque<MSG> messages_;
};

} // namespace platform
