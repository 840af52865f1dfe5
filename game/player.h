#pragma once

#include <cstdint>

#include "graphics/surface.h"
#include "graphics/ticks.h"

namespace mygame
{

/// The satellite, what the player owns, and what is left of the Earth.
struct Player {
    /// `health` of an untouched Earth.
    static constexpr std::int32_t kFullHealth = 100;
    /// `health` that marks that there is no game to resume.
    static constexpr std::int32_t kNoGame = -1;

    Surface satellite;
    std::int32_t money = 0; ///< Dollars, never negative.
    std::int32_t x = 0;     ///< The satellite's centre, where missiles start.
    std::int32_t y = 0;
    Tick orbitStart = 0;           ///< When the orbit's angle is zero.
    std::int32_t health = 0;       ///< From `kFullHealth` down to 0, or `kNoGame`.
    std::int32_t missileSlots = 0; ///< Missiles that may be in flight at once.
    std::int32_t nukes = 0;

    /// Moves the satellite along its orbit to a tick.
    void updateOrbit(Tick now);

    /// Takes damage from the Earth. Below 0 it stays at 0 and the game ends.
    void takeDamage(std::int32_t amount);

    /// Draws the satellite and the gauge of the Earth's health.
    void drawPlayer(Surface &target) const;
};

} // namespace mygame
