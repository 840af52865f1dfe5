#include "platform/sdl/game_clock.h"

#include <algorithm>

#include "platform/common/refresh_grid.h"

namespace platform
{
namespace
{

/// The game compares ticks as signed numbers and some of them with 0: it starts far from both edges.
constexpr Tick kLeastStartTick = 10000;
constexpr Tick kStartTickRange = 1u << 30;

} // namespace

GameClock::GameClock(Tick machineTick) : startTick_(std::max(kLeastStartTick, machineTick % kStartTickRange))
{
}

bool GameClock::standsBeforeRefresh() const
{
    return common::nextRefreshMs(elapsedMs_, rate_) == elapsedMs_ + 1;
}

void GameClock::moveToRefresh(std::uint32_t missed) { moveTo(refreshAfter(1 + missed)); }

void GameClock::passRefreshes(std::uint32_t count) { moveTo(refreshAfter(count) - 1); }

void GameClock::pass(std::uint32_t milliseconds) { moveTo(elapsedMs_ + milliseconds); }

std::uint64_t GameClock::refreshAfter(std::uint32_t count) const
{
    std::uint64_t refresh = elapsedMs_;
    for (; count > 0; --count)
        refresh = common::nextRefreshMs(refresh, rate_);
    return refresh;
}

void GameClock::moveTo(std::uint64_t elapsedMs)
{
    elapsedMs_ = elapsedMs;
    if (tick() == kNeverHere)
        ++elapsedMs_;
}

} // namespace platform
