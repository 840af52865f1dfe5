#pragma once

#include <chrono>
#include <cstdint>

#include "platform/clock.h"

namespace platform
{

/// Milliseconds since the machine was switched on, moving only when it is looked at.
class SampledClock
{
public:
    /// Starts at the time for which the machine has been running.
    explicit SampledClock(Tick machineTick);

    std::uint32_t tick() const { return tick_; }

    void sample();

private:
    std::chrono::steady_clock::time_point start;
    std::uint32_t startTick;
    std::uint32_t tick_;
};

} // namespace platform
