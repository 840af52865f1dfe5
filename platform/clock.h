/// The device's millisecond clock: the one door by which time comes in.
#pragma once

#include <cstdint>

namespace platform
{

/// A moment: milliseconds since the device was switched on, wrapping from 2^32 - 1 to 0.
using Tick = std::uint32_t;

/// A span of time in milliseconds, negative where it leads back.
using Ms = std::int32_t;

/// The span from one moment to another, across the wrap, too; right for moments less than 2^31 ms apart.
constexpr Ms msBetween(Tick from, Tick to) { return static_cast<Ms>(to - from); }

/// The clock's moment. Sampled: it moves only in `Sleep` and in `GXEndDraw`, never between two calls of
/// anything else, so that a session is described completely by what the player did at which tick.
Tick GetTickCount();

/// Gives the processor away for `milliseconds` (0: not at all) and moves the clock by as many. While the
/// program's window is in the background a device with a screen waits for a message instead, and its clock
/// stands still.
void Sleep(std::uint32_t milliseconds);

} // namespace platform
