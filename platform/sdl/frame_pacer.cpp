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
constexpr std::chrono::seconds kLongestFrame{10};

} // namespace

std::uint32_t FramePacer::setRefreshRate(int displayRate)
{
    const int rate = displayRate < kLeastRate ? kUsualRate : std::min(displayRate, kHighestRate);
    period_ = Clock::duration(std::chrono::seconds(1)) / rate;
    return static_cast<std::uint32_t>(rate);
}

std::uint32_t FramePacer::wait(VerticalSync sync)
{
    const Clock::time_point due = last_ + period_;
    if (sync == VerticalSync::On && due - Clock::now() < period_ / 2) {
        // The display's own refreshes are the grid now, to which this one is the nearest.
        const Clock::duration length = Clock::now() - last_;
        last_ += length;
        const auto refreshes = static_cast<std::uint32_t>((length + period_ / 2) / period_);
        return length > kLongestFrame ? 1 : std::max(1u, refreshes);
    }
    std::this_thread::sleep_until(due);
    const Clock::duration late = Clock::now() - due;
    if (late > kLongestFrame) {
        restart();
        return 1;
    }
    const auto missed = static_cast<std::uint32_t>(late / period_);
    last_ = due + missed * period_;
    return 1 + missed;
}

} // namespace platform
