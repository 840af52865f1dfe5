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
        state_->player.takeDamage(static_cast<const EarthHitEvent &>(event).damage);
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
    const ModeRules &mode = rulesOf(state_->mode);
    const Tick now = platform::GetTickCount();
    paused_ = false;
    nextSpawn_ = tickAfter(now, kFirstSpawnMs);
    gameStart_ = now;
    state_->groupSize = rulesOf(state_->difficulty).firstGroupSize;
    state_->asteroidFlightMs = kStartFlightMs;
    state_->wave = 1;
    state_->groupsThisWave = 0;
    state_->asteroidsDestroyed = 0;
    state_->elapsedMs = 0;
    state_->missileTravelTime = kStartTravelTime;
    state_->asteroids.clear();
    state_->missiles.clear();
    state_->explosions.clear();
    Player &player = state_->player;
    player.money = 0;
    // Kept: the satellite stays where it is until the first step moves it.
    player.orbitStart = platform::GetTickCount();
    player.health = Player::kFullHealth;
    player.missileSlots = chosenBy(state_->difficulty, mode.missileSlots);
    player.nukes = 0;
    spawnAsteroids(chosenBy(state_->difficulty, mode.asteroids));
}

void GameRules::updateWorld(Tick now)
{
    // Kept: looked at only here. The step in which a mode pauses runs to its end.
    if (paused_)
        return;
    rulesOf(state_->mode).step(*this, *state_, now);
    state_->elapsedMs = gameTime(now);
    for (auto &[id, asteroid] : state_->asteroids)
        moveAsteroid(asteroid, now);
    for (auto &[id, missile] : state_->missiles)
        moveMissile(missile, now);
    checkDirectHits();
    state_->player.updateOrbit(now);
}

void GameRules::pause()
{
    paused_ = true;
    pauseStart_ = platform::GetTickCount();
}

void GameRules::resume()
{
    // Kept: applied also when nothing was paused, since every activation of the game screen resumes. The
    // clocks then move on by the time since the last pause.
    const Ms pausedMs = msBetween(pauseStart_, platform::GetTickCount());
    const auto postpone = [pausedMs](Tick &tick) { tick = tickAfter(tick, pausedMs); };
    for (auto &[id, asteroid] : state_->asteroids)
        postpone(asteroid.spawnTime);
    for (auto &[id, missile] : state_->missiles)
        postpone(missile.launchTime);
    postpone(state_->player.orbitStart);
    postpone(gameStart_);
    postpone(nextSpawn_);
    paused_ = false;
}

} // namespace mygame
