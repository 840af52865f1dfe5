/// The rules' operations on asteroids and missiles.
#include "game/game_rules.h"

#include "game/events.h"
#include "game/game_state.h"
#include "game/physics.h"
#include "platform/clock.h"
#include "platform/random.h"
#include "shell/event_bus.h"

namespace mygame
{
namespace
{

/// Asteroids start and end at an x below this.
constexpr std::int32_t kAsteroidXRange = 230;
/// They start at this y or less than a range below it.
constexpr std::int32_t kAsteroidStartY = -10;
constexpr std::int32_t kAsteroidStartYRange = 20;
constexpr std::int32_t kAsteroidTargetY = 300;

/// Pixels; what is hit or blasted is strictly closer.
constexpr std::int32_t kDirectHitRadius = 10;
constexpr std::int32_t kBlastRadius = 28;

constexpr std::int32_t kMoneyPerCredit = 100;

EventBus &bus() { return EventBus::instance(); }

} // namespace

void GameRules::spawnAsteroid()
{
    const std::int32_t id = ++nextId_;
    Asteroid &asteroid = state_->asteroids[id];
    asteroid.id = id;
    asteroid.flightMs = state_->asteroidFlightMs;
    asteroid.spawnTime = platform::GetTickCount();
    asteroid.startX = platform::rand() % kAsteroidXRange;
    asteroid.targetX = platform::rand() % kAsteroidXRange;
    asteroid.targetY = kAsteroidTargetY;
    asteroid.startY = platform::rand() % kAsteroidStartYRange + kAsteroidStartY;
    asteroid.x = asteroid.startX;
    asteroid.y = asteroid.startY;
    bus().post<AsteroidSpawnedEvent>(id);
}

void GameRules::spawnAsteroids(std::int32_t count)
{
    for (; count > 0; --count)
        spawnAsteroid();
}

void GameRules::fireMissile(std::int32_t x, std::int32_t y)
{
    const Player &player = state_->player;
    if (static_cast<std::int32_t>(state_->missiles.size()) >= player.missileSlots)
        return;
    const std::int32_t id = ++nextId_;
    Missile &missile = state_->missiles[id];
    missile.id = id;
    missile.targetX = x;
    missile.targetY = y;
    missile.startX = missile.x = player.x;
    missile.startY = missile.y = player.y;
    missile.launchTime = platform::GetTickCount();
    missile.flightMs = missileFlightMs(x - player.x, y - player.y, state_->missileTravelTime);
    bus().post<MissileLaunchedEvent>(id);
}

void GameRules::checkDirectHits()
{
    // Kept: nothing is removed here. An asteroid near two missiles counts twice, and so does a missile near
    // two.
    for (const auto &[asteroidId, asteroid] : state_->asteroids) {
        for (const auto &[missileId, missile] : state_->missiles) {
            if (!inRange(asteroid, missile, kDirectHitRadius))
                continue;
            bus().post<MissileDetonatedEvent>(missileId, missile.x, missile.y);
            bus().post<AsteroidDestroyedEvent>(asteroidId, asteroid.x, asteroid.y);
            credit();
        }
    }
}

void GameRules::detonateMissile(std::int32_t id)
{
    const auto missile = state_->missiles.find(id);
    if (missile == state_->missiles.end())
        return;
    // Kept: an asteroid that was hit directly is still there, and is credited once more.
    for (const auto &[asteroidId, asteroid] : state_->asteroids) {
        if (!inRange(asteroid, missile->second, kBlastRadius))
            continue;
        credit();
        bus().post<AsteroidDestroyedEvent>(asteroidId, asteroid.x, asteroid.y);
    }
    state_->missiles.erase(missile);
}

void GameRules::destroyAsteroid(std::int32_t id)
{
    // Kept: one that is named twice is replaced once.
    const bool removed = state_->asteroids.erase(id) != 0;
    if (removed && rulesOf(state_->mode).replacesAsteroids)
        spawnAsteroid();
}

void GameRules::useNuke()
{
    if (state_->player.nukes <= 0)
        return;
    --state_->player.nukes;
    for (const auto &[id, asteroid] : state_->asteroids) {
        bus().post<AsteroidDestroyedEvent>(id, asteroid.x, asteroid.y);
        credit();
    }
    // Kept: when these go off the asteroids are gone, but what has replaced them may be close enough.
    for (const auto &[id, missile] : state_->missiles)
        bus().post<MissileDetonatedEvent>(id, missile.x, missile.y);
    bus().post<NukeFlashEvent>();
}

void GameRules::credit()
{
    ++state_->asteroidsDestroyed;
    state_->player.money += kMoneyPerCredit;
}

} // namespace mygame
