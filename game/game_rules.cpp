#include "game/game_rules.h"

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
/// Until the first asteroids come by themselves, in the modes where they do.
constexpr Ms kFirstSpawnMs = 5000;

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
    const ModeRules &mode = rulesOf(state->mode);
    const Tick now = platform::GetTickCount();
    paused = false;
    nextSpawn = tickAfter(now, kFirstSpawnMs);
    gameStart = now;
    state->groupSize = rulesOf(state->difficulty).firstGroupSize;
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
    // Kept: the satellite stays where it is until the first step moves it.
    player.orbitStart = platform::GetTickCount();
    player.health = Player::kFullHealth;
    player.missileSlots = chosenBy(state->difficulty, mode.missileSlots);
    player.nukes = 0;
    spawnAsteroids(chosenBy(state->difficulty, mode.asteroids));
}

void GameRules::updateWorld(Tick now)
{
    // Kept: looked at only here. The step in which a mode pauses runs to its end.
    if (paused)
        return;
    rulesOf(state->mode).step(*this, *state, now);
    state->elapsedMs = gameTime(now);
    for (auto &[id, asteroid] : state->asteroids)
        moveAsteroid(asteroid, now);
    for (auto &[id, missile] : state->missiles)
        moveMissile(missile, now);
    checkDirectHits();
    state->player.updateOrbit(now);
}

void GameRules::pause()
{
    paused = true;
    pauseStart = platform::GetTickCount();
}

void GameRules::resume()
{
    // Kept: applied also when nothing was paused, since every activation of the game screen resumes. The
    // clocks then move on by the time since the last pause.
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
