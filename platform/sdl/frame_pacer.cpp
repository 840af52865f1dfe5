#include "platform/sdl/frame_pacer.h"

#include <algorithm>
#include <thread>

namespace platform
{
namespace
{

constexpr int kUsualRate = 60;
/// Virtual displays and broken drivers report 0, 1 and the like. Twice the highest would be a pass of the
/// main loop each millisecond, the least that its clock can tell.
constexpr int kLeastRate = 24;
constexpr int kHighestRate = 500;

/// What takes longer was no frame: the machine slept, or somebody stopped the process.
constexpr std::chrono::seconds kLongestFrame{9};

} // namespace

RealTime::Clock::time_point RealTime::now() { return Clock::now(); }

void RealTime::sleepUntil(Clock::time_point time) { std::this_thread::sleep_until(time); }

std::uint32_t FramePacer::setRefreshRate(int displayRate)
{
    const int rate = displayRate < kLeastRate ? kUsualRate : std::min(displayRate, kHighestRate);
    period_ = Clock::duration(std::chrono::seconds(1)) / rate;
    return static_cast<std::uint32_t>(rate);
}

std::uint32_t FramePacer::wait(VerticalSync sync)
{
    if (!time_.waits())
        return 1;
    const bool held = sync == VerticalSync::On && last_ + period_ - time_.now() < period_ / 2;
    return held ? countRefreshes() : waitForRefresh();
}

std::uint32_t FramePacer::takeMissed() { return time_.waits() ? 0 : countRefreshes() - 1; }

std::uint32_t FramePacer::waitForRefresh()
{
    const Clock::time_point due = last_ + period_;
    time_.sleepUntil(due);
    const Clock::duration late = time_.now() - due;
    if (late > kLongestFrame) {
        restart();
        return 1;
    }
    const auto missed = static_cast<std::uint32_t>(late / period_);
    last_ = due + missed * period_;
    return 1 + missed;
}

std::uint32_t FramePacer::countRefreshes()
{
    // The display's own refreshes are the grid now.
    const Clock::duration length = time_.now() - last_;
    restart();
    if (length < period_ || length > kLongestFrame)
        return 1;
    return static_cast<std::uint32_t>((length + period_ / 2) / period_);
}

} // namespace platform
