/// The device's millisecond clock: the one door by which time comes in.
#pragma once

#include <cstdint>

namespace platform
{

/// Milliseconds since the device was switched on; wraps from 2^32 - 1 to 0.
/// Sampled: it moves only in `Sleep` and in `GXEndDraw`, never between two calls of anything else, so that
/// a session is described completely by what the player did at which tick.
std::uint32_t GetTickCount();

/// Gives the processor away for about `milliseconds` (0: not at all) and samples the clock.
/// While the program's window is in the background a device may wait longer, until there is a message.
void Sleep(std::uint32_t milliseconds);

} // namespace platform
