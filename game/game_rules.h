#pragma once

#include <cstdint>

#include "graphics/ticks.h"
#include "shell/event_bus.h"

namespace mygame
{

struct Asteroid;
struct GameState;

/// The referee: starts games and runs a simulation step a frame; the mode decides when asteroids come and
/// when a game is over. All that it changes lives in the game state; what it decides it posts.
class GameRules : public EventListener
{
public:
    /// Subscribes to the bus for good.
    GameRules();
    GameRules(const GameRules &) = delete;
    GameRules &operator=(const GameRules &) = delete;
    virtual ~GameRules() = default;

    /// Sets the state to work on. Once, before any event is delivered.
    void link(GameState *gameState) { state_ = gameState; }

    bool onEvent(const Event &event) override;

    // For the modes' steps.

    /// Lets so many asteroids come at once, none when that is below 1.
    void spawnAsteroids(std::int32_t count);

    /// Stops the game's clocks until the next `ResumeEvent`. A step that runs is not cut short.
    void pause();

    /// Game time at a tick: pauses do not count.
    Ms gameTime(Tick now) const { return msBetween(gameStart_, now); }

    /// True after the moment at which more asteroids are due. That moves on only by `delayNextSpawn`.
    bool isSpawnDue(Tick now) const { return asDue(nextSpawn_) < asDue(now); }

    /// Kept: counts from the due moment, not from now. After a long frame what was missed comes, a spawn a
    /// step.
    void delayNextSpawn(Ms interval) { nextSpawn_ = tickAfter(nextSpawn_, interval); }

private:
    void newGame();
    void updateWorld(Tick now);
    void resume();

    // Single objects.
    void spawnAsteroid();
    void fireMissile(std::int32_t x, std::int32_t y);
    void checkDirectHits();
    void detonateMissile(std::int32_t id);
    void destroyAsteroid(std::int32_t id);
    void useNuke();
    /// Rewards a destroyed asteroid.
    void credit();

    GameState *state_ = nullptr;
    std::int32_t nextId_ = 0; ///< The last id given to an asteroid or missile.
    Tick pauseStart_ = 0;
    Tick gameStart_ = 0;
    Tick nextSpawn_ = 0; ///< After this more asteroids are due.
    bool paused_ = false;
};

} // namespace mygame
