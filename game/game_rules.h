#pragma once

#include <cstdint>

#include "graphics/ticks.h"
#include "shell/event_bus.h"

namespace mygame
{

struct Asteroid;
struct GameState;

/// The referee: starts games, runs a simulation step a frame, and decides when asteroids come and when a game
/// is over. All that it changes lives in the game state; what it decides it posts.
class GameRules : public EventListener
{
public:
    /// Subscribes to the bus for good.
    GameRules();
    GameRules(const GameRules &) = delete;
    GameRules &operator=(const GameRules &) = delete;
    virtual ~GameRules() = default;

    /// Sets the state to work on. Once, before any event is delivered.
    void link(GameState *gameState) { state = gameState; }

    bool onEvent(const Event &event) override;

private:
    // The game's course.
    void newGame();
    void updateWorld(Tick now);
    void survivalStep(Tick now);
    void campaignStep();
    void launchGroup();
    void completeWave();
    void pause();
    void resume();

    // The world.
    void spawnAsteroid();
    void spawnAsteroids(std::int32_t count);
    void fireMissile(std::int32_t x, std::int32_t y);
    void checkDirectHits();
    void detonateMissile(std::int32_t id);
    void destroyAsteroid(std::int32_t id);
    void useNuke();
    /// Rewards a destroyed asteroid.
    void credit();

    GameState *state = nullptr;
    std::int32_t nextId = 0; ///< The last id given to an asteroid or missile.
    Tick pauseStart = 0;
    Tick gameStart = 0;
    Tick nextSpawn = 0; ///< When the next survival spawn is due.
    bool paused = false;
};

} // namespace mygame
