#pragma once

#include <cstdint>

namespace platform::common
{

/// The next refresh of a display that refreshes `rate` times a second, 1 or more: the first that lies later
/// than `elapsedMs`. The k-th is the whole of k * 1000 / rate milliseconds after the start.
constexpr std::uint64_t nextRefreshMs(std::uint64_t elapsedMs, std::uint32_t rate)
{
    constexpr std::uint64_t kMsPerSecond = 1000;
    // The least k with k * 1000 / rate, cut to whole milliseconds, of elapsedMs + 1 or more.
    const std::uint64_t k = ((elapsedMs + 1) * rate + kMsPerSecond - 1) / kMsPerSecond;
    return k * kMsPerSecond / rate;
}

/// Where presenting a frame leaves the clock: 1 ms before the next refresh or, where it stands there already,
/// at the refresh. So two frames go to each refresh; the earlier lets the program take in what the player
/// did, the later shows it.
constexpr std::uint64_t afterFrameMs(std::uint64_t elapsedMs, std::uint32_t rate)
{
    const std::uint64_t refresh = nextRefreshMs(elapsedMs, rate);
    return refresh - 1 == elapsedMs ? refresh : refresh - 1;
}

} // namespace platform::common
