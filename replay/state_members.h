/// The one list of what a trace tells of the game.
#pragma once

#include "game/game_state.h"

namespace replay
{

/// Calls `visit(name, number)` for each number of the player, in the trace's order.
template <class Visitor> void visitMembers(const mygame::Player &player, Visitor visit)
{
    visit("money", player.money);
    visit("x", player.x);
    visit("y", player.y);
    visit("health", player.health);
    visit("missileSlots", player.missileSlots);
    visit("nukes", player.nukes);
}

/// Calls `visit(name, value)` for each member of the state, in the trace's order: numbers, the player, and
/// the three tables.
template <class Visitor> void visitMembers(const mygame::GameState &state, Visitor visit)
{
    visit("elapsedMs", state.elapsedMs);
    visit("asteroidsDestroyed", state.asteroidsDestroyed);
    visit("mode", static_cast<std::int32_t>(state.mode));
    visit("difficulty", static_cast<std::int32_t>(state.difficulty));
    visit("wave", state.wave);
    visit("groupsThisWave", state.groupsThisWave);
    visit("asteroidFlightMs", state.asteroidFlightMs);
    visit("groupSize", state.groupSize);
    visit("missileTravelTime", state.missileTravelTime);
    visit("soundOn", std::int32_t{state.soundOn});
    visit("player", state.player);
    visit("asteroids", state.asteroids);
    visit("missiles", state.missiles);
    visit("explosions", state.explosions);
}

} // namespace replay
