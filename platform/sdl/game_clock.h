#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace platform
{

/// The clock that the program sees. It stands still but for what is said here, and moves along the grid of
/// the display's refreshes: motion is computed for the moment at which it is seen, not for the one at which
/// the process woke.
class GameClock
{
public:
    /// Starts at the time for which the machine has been running, kept far from where ticks wrap.
    explicit GameClock(Tick machineTick);

    Tick tick() const { return startTick_ + static_cast<Tick>(elapsedMs_); }

    /// In Hz, 1 or more: the grid is that of this rate from now on.
    void setRefreshRate(std::uint32_t rate) { rate_ = rate; }
    std::uint32_t refreshRate() const { return rate_; }

    /// Whether the clock stands right before a refresh. A frame drawn now is not shown: it lets the program
    /// take in what the player did, for the one after it, which is.
    bool standsBeforeRefresh() const;

    /// From right before a refresh to the refresh, or past as many as were missed.
    void moveToRefresh(std::uint32_t missed = 0);

    /// To right before the next refresh, or that after so many.
    void passRefreshes(std::uint32_t count);

    void pass(std::uint32_t milliseconds);

private:
    /// At the greatest signed tick a frame is always due, and the clock could stand there for ever.
    static constexpr Tick kNeverHere = 0x7FFFFFFF;

    std::uint64_t refreshAfter(std::uint32_t count) const;
    void moveTo(std::uint64_t elapsedMs);

    Tick startTick_;
    std::uint64_t elapsedMs_ = 0;
    std::uint32_t rate_ = 60;
};

} // namespace platform
