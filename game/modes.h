/// The modes and difficulties of the game: everything by which one differs from another.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "graphics/ticks.h"

namespace mygame
{

class GameRules;
struct GameState;

enum class GameMode : std::int32_t {
    None = 0, ///< Before the first choice.
    Campaign = 1,
    Survival = 2,
    TimeAttack = 3,
};

enum class Difficulty : std::int32_t {
    None = 0, ///< Before the first choice.
    Easy = 1,
    Medium = 2,
    Hard = 3,
};

/// A number for each difficulty.
struct PerDifficulty {
    std::int32_t easy, medium, hard;
};

struct DifficultyRules {
    Difficulty difficulty;
    const char16_t *name;                  ///< Its row in the main menu.
    std::int32_t PerDifficulty::*number;   ///< Which of a mode's numbers count.
    std::int32_t firstGroupSize;           ///< Asteroids in the first groups of a campaign.
    bool (*groupsGrow)(std::int32_t wave); ///< Whether a campaign's groups grow when this wave is over.
};

/// What the player sees when a game is over.
struct Ending {
    enum class Kind { None, Message, GameOver };

    Kind kind = Kind::None;
    std::u16string message; ///< Of `Kind::Message`.
};

struct ModeRules {
    GameMode mode;
    const char16_t *name;       ///< Its row in the main menu.
    PerDifficulty asteroids;    ///< At the start of a game.
    PerDifficulty missileSlots; ///< At the start of a game.
    bool replacesAsteroids;     ///< Another one comes for each that is destroyed.
    Ms timeLimit;               ///< Game time from which on a game cannot be resumed, or `kNoTimeLimit`.

    /// Decides in a simulation step what comes and whether the game is over, before anything moves.
    void (*step)(GameRules &rules, GameState &state, Tick now);

    /// The clock's text; empty where none is shown.
    std::u16string (*clock)(const GameState &state);

    Ending (*ending)(const GameState &state);
};

constexpr Ms kNoTimeLimit = 0;

/// In the order of the main menu's lists.
std::span<const ModeRules> gameModes();
std::span<const DifficultyRules> difficulties();

/// The rules of a mode. Those of `GameMode::None` let nothing come, show nothing and never end.
const ModeRules &rulesOf(GameMode mode);

/// The same for a difficulty.
const DifficultyRules &rulesOf(Difficulty difficulty);

/// The number that a difficulty chooses, 0 for `Difficulty::None`.
std::int32_t chosenBy(Difficulty difficulty, const PerDifficulty &numbers);

/// True while there is a game that can go on: the Earth stands, and its time is not up.
bool canResume(const GameState &state);

} // namespace mygame
