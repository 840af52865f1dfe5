/// Moments and spans of time, for all that moves.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace mygame
{

using platform::Ms;
using platform::msBetween;
using platform::Tick;

/// The moment that lies a span after another one, or before it when the span is negative.
constexpr Tick tickAfter(Tick tick, Ms ms) { return tick + static_cast<Tick>(ms); }

/// A tick as what is due is compared with the clock.
/// Kept: as a signed number, not as a span. What is due beyond 2^31 - 1 is due at once, and nothing is for
/// as long as it takes when the clock passes that edge before it is done.
constexpr std::int32_t asDue(Tick tick) { return static_cast<std::int32_t>(tick); }

} // namespace mygame
