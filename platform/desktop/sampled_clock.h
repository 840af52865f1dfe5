#pragma once

#include <chrono>
#include <cstdint>

namespace platform
{

/// Milliseconds since the machine was switched on, moving only when it is looked at.
class SampledClock
{
public:
    SampledClock();

    std::uint32_t tick() const { return tick_; }

    void sample();

private:
    std::chrono::steady_clock::time_point start;
    std::uint32_t startTick;
    std::uint32_t tick_;
};

} // namespace platform
