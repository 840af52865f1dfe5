#pragma once

#include <chrono>
#include <cstdint>

namespace platform
{

/// The time of the machine.
class RealTime
{
public:
    using Clock = std::chrono::steady_clock;

    virtual ~RealTime() = default;
    virtual Clock::time_point now();
    virtual void sleepUntil(Clock::time_point time);
    /// False where nothing may wait, because the host calls the program at each refresh: `now` is the time of
    /// that refresh then, and `sleepUntil` does nothing.
    virtual bool waits() const { return true; }
};

/// Whether the display itself made a frame wait.
enum class VerticalSync { Off, On };

/// Makes frames as long as the display's refresh period.
class FramePacer
{
public:
    explicit FramePacer(RealTime &time) : time_(time) {}

    /// Frames in a second: what a display says of itself, or 60 where that can be no display's rate.
    std::uint32_t setRefreshRate(int displayRate);

    /// Waits for the next refresh, one period after the last. After a frame that vertical sync seems to have
    /// held there is nothing to wait for. @return the refreshes since the last call, more than 1 where some
    /// were missed; 1 also after so long that the machine must have slept.
    std::uint32_t wait(VerticalSync sync);

    /// To be called at the beginning of what `wait` waited for. Where nothing waits only then it is known
    /// which refresh has come. @return how many were missed beyond those that `wait` counted, 0 on other
    /// hosts.
    std::uint32_t takeMissed();

    /// Begins anew: the time until now is no frame's.
    void restart() { last_ = time_.now(); }

private:
    using Clock = RealTime::Clock;

    std::uint32_t waitForRefresh();
    std::uint32_t countRefreshes();

    RealTime &time_;
    Clock::duration period_ = std::chrono::nanoseconds(std::chrono::seconds(1)) / 60;
    Clock::time_point last_ = time_.now(); ///< When the last refresh was due.
};

} // namespace platform
