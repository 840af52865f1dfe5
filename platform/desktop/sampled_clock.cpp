#include "platform/desktop/sampled_clock.h"

#include <algorithm>
#include <ctime>

namespace platform
{
namespace
{

/// The game compares ticks as signed numbers and some of them with 0: it starts far from both edges.
constexpr std::uint32_t kLeastStartTick = 10000;
constexpr std::uint32_t kStartTickRange = 1u << 30;

std::uint32_t machineTick()
{
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return static_cast<std::uint32_t>(time.tv_sec * 1000 + time.tv_nsec / 1000000);
}

} // namespace

SampledClock::SampledClock()
    : start(std::chrono::steady_clock::now()),
      startTick(std::max(kLeastStartTick, machineTick() % kStartTickRange)), tick_(startTick)
{
}

void SampledClock::sample()
{
    using std::chrono::milliseconds;
    const auto passed = std::chrono::steady_clock::now() - start;
    tick_ = startTick + static_cast<std::uint32_t>(std::chrono::duration_cast<milliseconds>(passed).count());
}

} // namespace platform
