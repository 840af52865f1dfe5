#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "replay/script.h"

namespace replay
{

/// A recorded game that somebody watches: it goes on with real time, at different speeds, and forwards and
/// back. Only one can be there at a time, and no other program of this kind.
class WatchedGame
{
public:
    /// `dataFolder` holds the pictures.
    WatchedGame(Script script, std::string dataFolder);
    WatchedGame(const WatchedGame &) = delete;
    WatchedGame &operator=(const WatchedGame &) = delete;
    ~WatchedGame();

    /// Where it is, and how long it lasts, in ms of the game's clock.
    std::uint32_t positionMs() const;
    std::uint32_t lengthMs() const { return script_.timeline.back().atMs; }

    /// Lets so much real time pass.
    void pass(std::uint32_t milliseconds);

    void togglePause() { paused_ = !paused_; }
    bool isPaused() const { return paused_; }

    /// Twice as fast, and half as fast, from a quarter of the game's own pace to 16 times.
    void faster();
    void slower();
    /// In quarters of the game's own pace.
    std::uint32_t speedInQuarters() const { return 1u << speed_; }

    /// Goes to another place, at the nearest end where there is none; backwards by playing anew from the
    /// start.
    void seek(std::int64_t ms);

    /// The picture shown there, row by row; empty before the first.
    std::span<const std::uint16_t> picture() const { return picture_; }
    /// The sounds that began since the last call, by their files.
    std::vector<std::string> takeSounds() { return std::exchange(sounds_, {}); }

    /// The frame that was the first not to be as recorded.
    std::optional<std::uint64_t> firstWrongFrame() const { return firstWrongFrame_; }

private:
    struct Run;

    void start();
    void playTo(std::uint64_t ms);

    const Script script_;
    const std::string dataFolder_;
    std::unique_ptr<Run> run_;
    std::uint64_t positionQuarters_ = 0; ///< In quarters of a ms.
    unsigned speed_ = 2;                 ///< As a power of two, of a quarter.
    bool paused_ = false;
    std::vector<std::uint16_t> picture_;
    std::vector<std::string> sounds_;
    std::optional<std::uint64_t> firstWrongFrame_;
};

/// What a title says of it: place, length and speed, and whether the pictures are not those recorded.
std::string titleOf(const WatchedGame &game);

} // namespace replay
