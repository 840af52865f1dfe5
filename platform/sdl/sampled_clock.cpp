#include "platform/sdl/sampled_clock.h"

#include <algorithm>

namespace platform
{
namespace
{

/// The game compares ticks as signed numbers and some of them with 0: it starts far from both edges.
constexpr std::uint32_t kLeastStartTick = 10000;
constexpr std::uint32_t kStartTickRange = 1u << 30;

} // namespace

SampledClock::SampledClock(Tick machineTick)
    : start(std::chrono::steady_clock::now()),
      startTick(std::max(kLeastStartTick, machineTick % kStartTickRange)), tick_(startTick)
{
}

void SampledClock::sample()
{
    using std::chrono::milliseconds;
    const auto passed = std::chrono::steady_clock::now() - start;
    tick_ = startTick + static_cast<std::uint32_t>(std::chrono::duration_cast<milliseconds>(passed).count());
}

} // namespace platform
