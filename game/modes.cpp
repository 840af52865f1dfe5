#include "game/modes.h"

#include "game/events.h"
#include "game/formatted_text.h"
#include "game/game_rules.h"
#include "game/game_state.h"

namespace mygame
{
namespace
{

constexpr Ms kMsPerSecond = 1000;
constexpr std::int32_t kSecondsPerMinute = 60;
constexpr std::int32_t kMinutesPerHour = 60;

void endGame() { EventBus::instance().post<GameEndedEvent>(); }

void endGameWithoutEarth(const GameState &state)
{
    if (state.player.health <= 0)
        endGame();
}

Ending gameOver() { return {Ending::Kind::GameOver, {}}; }
Ending message(std::u16string text) { return {Ending::Kind::Message, std::move(text)}; }

// The campaign: waves of groups, each launched under an empty sky, with the shop between two waves.

constexpr std::int32_t kGroupsPerWave = 5;
constexpr std::int32_t kWaves = 15;
constexpr Ms kFlightMsLessPerWave = 120;
/// Above "Easy", groups grow after each wave before this one.
constexpr std::int32_t kGrowthEndWave = 10;

bool growAfterOddWaves(std::int32_t wave) { return wave % 2 != 0; }
bool growInEarlyWaves(std::int32_t wave) { return wave < kGrowthEndWave; }

void completeWave(GameRules &rules, GameState &state)
{
    if (rulesOf(state.difficulty).groupsGrow(state.wave))
        ++state.groupSize;
    state.asteroidFlightMs -= kFlightMsLessPerWave;
    ++state.wave;
    state.groupsThisWave = 0;
    if (state.wave > kWaves) {
        endGame();
        return;
    }
    // Kept: the wave's last group is on its way already; it waits on the screen while the player shops.
    rules.pause();
    EventBus::instance().post<WaveCompleteEvent>();
}

void campaignStep(GameRules &rules, GameState &state, Tick)
{
    if (state.asteroids.empty()) {
        ++state.groupsThisWave;
        rules.spawnAsteroids(state.groupSize);
        if (state.groupsThisWave >= kGroupsPerWave)
            completeWave(rules, state);
    }
    // Kept: a campaign whose last wave just ended may end here once more.
    endGameWithoutEarth(state);
}

std::u16string noClock(const GameState &) { return {}; }

Ending campaignEnding(const GameState &state)
{
    return state.player.health < 1 ? gameOver() : message(u"You have saved the Earth");
}

// Survival: more and more asteroids, ever faster, until the Earth is gone.

constexpr Ms kSlowestSpawnMs = 4000;
constexpr Ms kFastestSpawnMs = 2000;
/// The spawn interval falls from the slowest to the fastest in this time.
constexpr std::int32_t kSpeedUpSeconds = 180;
constexpr std::int32_t kSecondsPerExtraAsteroid = 40;

Ms spawnInterval(std::int32_t seconds)
{
    if (seconds > kSpeedUpSeconds)
        return kFastestSpawnMs;
    return kSlowestSpawnMs - seconds * (kSlowestSpawnMs - kFastestSpawnMs) / kSpeedUpSeconds;
}

void survivalStep(GameRules &rules, GameState &state, Tick now)
{
    if (rules.isSpawnDue(now)) {
        const std::int32_t seconds = rules.gameTime(now) / kMsPerSecond;
        rules.delayNextSpawn(spawnInterval(seconds));
        // Kept: one comes by itself, so that one still does when game time has become negative.
        rules.spawnAsteroids(1);
        rules.spawnAsteroids(seconds / kSecondsPerExtraAsteroid + 1);
    }
    endGameWithoutEarth(state);
}

std::u16string survivalClock(const GameState &state)
{
    // Kept: the minutes begin anew after an hour.
    const std::int32_t seconds = state.elapsedMs / kMsPerSecond;
    return formatted(u"%2.2d:%2.2d", seconds / kSecondsPerMinute % kMinutesPerHour,
                     seconds % kSecondsPerMinute);
}

Ending survivalEnding(const GameState &state)
{
    return message(formatted(u"You survived for %d seconds", state.elapsedMs / kMsPerSecond));
}

// Time attack: as many asteroids as possible in a fixed time.

constexpr Ms kTimeAttackMs = 20000;

void timeAttackStep(GameRules &, GameState &state, Tick)
{
    // Kept: a destroyed Earth does not end this game until it is hit once more.
    if (state.elapsedMs > kTimeAttackMs)
        endGame();
}

std::u16string timeAttackClock(const GameState &state)
{
    // Kept: one digit in the last ten seconds.
    return formatted(u"0:%d", (kTimeAttackMs / kMsPerSecond) - (state.elapsedMs / kMsPerSecond));
}

Ending timeAttackEnding(const GameState &state)
{
    if (state.player.health < 1)
        return gameOver();
    return message(formatted(u"Asteroids destroyed: %d", state.asteroidsDestroyed));
}

// No game.

void noStep(GameRules &, GameState &, Tick) {}
Ending noEnding(const GameState &) { return {}; }

constexpr ModeRules kNoMode = {.mode = GameMode::None,
                               .name = u"",
                               .asteroids = {},
                               .missileSlots = {},
                               .replacesAsteroids = false,
                               .timeLimit = kNoTimeLimit,
                               .step = noStep,
                               .clock = noClock,
                               .ending = noEnding};

constexpr ModeRules kModes[] = {
    {.mode = GameMode::Campaign,
     .name = u"Campaign",
     .asteroids = {.easy = 1, .medium = 2, .hard = 3},
     .missileSlots = {.easy = 1, .medium = 1, .hard = 1},
     .replacesAsteroids = false,
     .timeLimit = kNoTimeLimit,
     .step = campaignStep,
     .clock = noClock,
     .ending = campaignEnding},
    {.mode = GameMode::Survival,
     .name = u"Survival",
     .asteroids = {.easy = 2, .medium = 2, .hard = 2},
     .missileSlots = {.easy = 3, .medium = 2, .hard = 1},
     .replacesAsteroids = false,
     .timeLimit = kNoTimeLimit,
     .step = survivalStep,
     .clock = survivalClock,
     .ending = survivalEnding},
    {.mode = GameMode::TimeAttack,
     .name = u"Time attack",
     .asteroids = {.easy = 3, .medium = 7, .hard = 10},
     .missileSlots = {.easy = 1, .medium = 2, .hard = 3},
     .replacesAsteroids = true,
     .timeLimit = kTimeAttackMs,
     .step = timeAttackStep,
     .clock = timeAttackClock,
     .ending = timeAttackEnding},
};

constexpr DifficultyRules kNoDifficulty = {Difficulty::None, u"", nullptr, 0, growInEarlyWaves};

constexpr DifficultyRules kDifficulties[] = {
    {Difficulty::Easy, u"Easy", &PerDifficulty::easy, 1, growAfterOddWaves},
    {Difficulty::Medium, u"Medium", &PerDifficulty::medium, 2, growInEarlyWaves},
    {Difficulty::Hard, u"Hard", &PerDifficulty::hard, 3, growInEarlyWaves},
};

} // namespace

std::span<const ModeRules> gameModes() { return kModes; }

std::span<const DifficultyRules> difficulties() { return kDifficulties; }

const ModeRules &rulesOf(GameMode mode)
{
    for (const ModeRules &rules : kModes) {
        if (rules.mode == mode)
            return rules;
    }
    return kNoMode;
}

const DifficultyRules &rulesOf(Difficulty difficulty)
{
    for (const DifficultyRules &rules : kDifficulties) {
        if (rules.difficulty == difficulty)
            return rules;
    }
    return kNoDifficulty;
}

std::int32_t chosenBy(Difficulty difficulty, const PerDifficulty &numbers)
{
    const auto number = rulesOf(difficulty).number;
    return number ? numbers.*number : 0;
}

bool canResume(const GameState &state)
{
    const Ms limit = rulesOf(state.mode).timeLimit;
    // Kept: at exactly the limit a game still runs, but can no longer be resumed.
    return state.player.health > 0 && (limit == kNoTimeLimit || state.elapsedMs < limit);
}

} // namespace mygame
