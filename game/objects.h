/// What flies and bursts over the Earth. Places are centres in pixels.
#pragma once

#include <cstdint>

#include "graphics/animated_sprite.h"
#include "graphics/ticks.h"

namespace mygame
{

/// A rock on a straight way from the top edge to the Earth.
struct Asteroid {
    AnimatedSprite sprite; ///< Draws nothing until the game screen has given it a look.
    std::int32_t id = 0;
    std::int32_t startX = 0;
    std::int32_t startY = 0;
    std::int32_t targetX = 0;
    std::int32_t targetY = 0;
    Tick spawnTime = 0;
    Ms flightMs = 0; ///< From start to target; not 0 in a game.
    std::int32_t x = 0;
    std::int32_t y = 0;
};

/// A missile on a straight way from the satellite to the tapped point.
struct Missile {
    std::int32_t targetX = 0;
    std::int32_t targetY = 0;
    std::int32_t startX = 0;
    std::int32_t startY = 0;
    Tick launchTime = 0;
    Ms flightMs = 0; ///< From start to target; 0 or less: it detonates where it starts.
    std::int32_t x = 0;
    std::int32_t y = 0;
    AnimatedSprite *sprite = nullptr; ///< The game screen's; not drawn while null.
    std::int32_t id = 0;
};

/// A blast that plays once. It only shows; the harm is done when it appears.
struct Explosion {
    AnimatedSprite sprite;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t id = 0;
};

} // namespace mygame
