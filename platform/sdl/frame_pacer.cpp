#include "platform/sdl/frame_pacer.h"

#include <thread>

namespace platform
{
namespace
{

constexpr int kUsualRate = 60;
/// Virtual displays and broken drivers report 0, 1 and the like.
constexpr int kLeastRate = 24;

} // namespace

void FramePacer::setRefreshRate(int rate)
{
    period = Clock::duration(std::chrono::seconds(1)) / (rate < kLeastRate ? kUsualRate : rate);
}

void FramePacer::wait(VerticalSync sync)
{
    const Clock::time_point due = last + period;
    const Clock::time_point now = Clock::now();
    const bool held = sync == VerticalSync::On && due - now < period / 2;
    if (held || now - due > period) {
        last = now;
        return;
    }
    std::this_thread::sleep_until(due);
    last = due;
}

} // namespace platform
