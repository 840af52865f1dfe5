#include "game/game_rules.h"

#include <cstddef>

#include "game/events.h"
#include "game/game_state.h"
#include "game/physics.h"
#include "platform/clock.h"
#include "shell/event_bus.h"

namespace mygame
{
namespace
{

constexpr Ms kStartFlightMs = 4000;
constexpr Ms kStartTravelTime = 2000;

constexpr Ms kFirstSpawnMs = 5000;
constexpr Ms kSlowestSpawnMs = 4000;
constexpr Ms kFastestSpawnMs = 2000;
/// The spawn interval falls from the slowest to the fastest in this time.
constexpr std::int32_t kSpeedUpSeconds = 180;
constexpr std::int32_t kSecondsPerExtraAsteroid = 40;

constexpr std::int32_t kGroupsPerWave = 5;
constexpr std::int32_t kWaves = 15;
constexpr Ms kFlightMsLessPerWave = 120;
/// Above "Easy", groups grow after each wave before this one.
constexpr std::int32_t kGrowthEndWave = 10;

/// A number for each mode and difficulty.
using ModeTable = std::int32_t[3][3];
constexpr ModeTable kInitialAsteroids = {{1, 2, 3}, {2, 2, 2}, {3, 7, 10}};
constexpr ModeTable kMissileSlots = {{1, 1, 1}, {3, 2, 1}, {1, 2, 3}};

std::int32_t lookUp(const ModeTable &table, const GameState &state)
{
    return table[static_cast<std::size_t>(state.mode) - 1][static_cast<std::size_t>(state.difficulty) - 1];
}

Ms spawnInterval(std::int32_t seconds)
{
    if (seconds > kSpeedUpSeconds)
        return kFastestSpawnMs;
    return kSlowestSpawnMs - seconds * (kSlowestSpawnMs - kFastestSpawnMs) / kSpeedUpSeconds;
}

bool groupsGrow(Difficulty difficulty, std::int32_t completedWave)
{
    return difficulty == Difficulty::Easy ? completedWave % 2 != 0 : completedWave < kGrowthEndWave;
}

} // namespace

GameRules::GameRules()
{
    for (EventType type :
         {kTick, kNewGame, kPause, kResume, kEarthHit, kAsteroidDestroyed, kMissileDetonated, kFire, kNuke})
        EventBus::instance().subscribe(type, this);
}

bool GameRules::onEvent(const Event &event)
{
    switch (event.type) {
    case kNewGame:
        newGame();
        break;
    case kResume:
        resume();
        break;
    case kPause:
        pause();
        break;
    case kTick:
        updateWorld(platform::GetTickCount());
        break;
    case kAsteroidDestroyed:
        destroyAsteroid(static_cast<const AsteroidDestroyedEvent &>(event).id);
        break;
    case kFire: {
        const auto &fire = static_cast<const FireEvent &>(event);
        fireMissile(fire.x, fire.y);
        break;
    }
    case kMissileDetonated:
        detonateMissile(static_cast<const MissileDetonatedEvent &>(event).id);
        break;
    case kEarthHit:
        state->player.takeDamage(static_cast<const EarthHitEvent &>(event).damage);
        break;
    case kNuke:
        useNuke();
        break;
    default:
        break;
    }
    return false;
}

void GameRules::newGame()
{
    const Tick now = platform::GetTickCount();
    paused = false;
    nextSpawn = tickAfter(now, kFirstSpawnMs);
    gameStart = now;
    state->groupSize = static_cast<std::int32_t>(state->difficulty);
    state->asteroidFlightMs = kStartFlightMs;
    state->wave = 1;
    state->groupsThisWave = 0;
    state->asteroidsDestroyed = 0;
    state->elapsedMs = 0;
    state->missileTravelTime = kStartTravelTime;
    state->asteroids.clear();
    state->missiles.clear();
    state->explosions.clear();
    Player &player = state->player;
    player.money = 0;
    player.orbitStart = platform::GetTickCount();
    player.health = Player::kFullHealth;
    player.missileSlots = lookUp(kMissileSlots, *state);
    player.nukes = 0;
    spawnAsteroids(lookUp(kInitialAsteroids, *state));
}

void GameRules::updateWorld(Tick now)
{
    if (paused)
        return;
    if (state->mode == GameMode::TimeAttack && state->elapsedMs > kTimeAttackMs)
        EventBus::instance().post<GameEndedEvent>();
    else if (state->mode == GameMode::Survival)
        survivalStep(now);
    else if (state->mode == GameMode::Campaign)
        campaignStep();
    state->elapsedMs = msBetween(gameStart, now);
    for (auto &[id, asteroid] : state->asteroids)
        moveAsteroid(asteroid, now);
    for (auto &[id, missile] : state->missiles)
        moveMissile(missile, now);
    checkDirectHits();
    state->player.updateOrbit(now);
}

void GameRules::survivalStep(Tick now)
{
    if (asDue(nextSpawn) < asDue(now)) {
        const std::int32_t seconds = msBetween(gameStart, now) / kMsPerSecond;
        // From the due time, not from now: after a long frame the schedule catches up, a spawn a step.
        nextSpawn = tickAfter(nextSpawn, spawnInterval(seconds));
        spawnAsteroid();
        spawnAsteroids(seconds / kSecondsPerExtraAsteroid + 1);
    }
    if (state->player.health <= 0)
        EventBus::instance().post<GameEndedEvent>();
}

void GameRules::campaignStep()
{
    if (state->asteroids.empty())
        launchGroup();
    if (state->player.health <= 0)
        EventBus::instance().post<GameEndedEvent>();
}

void GameRules::launchGroup()
{
    ++state->groupsThisWave;
    spawnAsteroids(state->groupSize);
    if (state->groupsThisWave >= kGroupsPerWave)
        completeWave();
}

void GameRules::completeWave()
{
    if (groupsGrow(state->difficulty, state->wave))
        ++state->groupSize;
    state->asteroidFlightMs -= kFlightMsLessPerWave;
    ++state->wave;
    state->groupsThisWave = 0;
    if (state->wave > kWaves) {
        EventBus::instance().post<GameEndedEvent>();
        return;
    }
    pause();
    EventBus::instance().post<WaveCompleteEvent>();
}

void GameRules::pause()
{
    paused = true;
    pauseStart = platform::GetTickCount();
}

void GameRules::resume()
{
    // Applied also when nothing was paused: every activation of the game screen resumes.
    const Ms pausedMs = msBetween(pauseStart, platform::GetTickCount());
    const auto postpone = [pausedMs](Tick &tick) { tick = tickAfter(tick, pausedMs); };
    for (auto &[id, asteroid] : state->asteroids)
        postpone(asteroid.spawnTime);
    for (auto &[id, missile] : state->missiles)
        postpone(missile.launchTime);
    postpone(state->player.orbitStart);
    postpone(gameStart);
    postpone(nextSpawn);
    paused = false;
}

} // namespace mygame
