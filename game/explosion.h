#pragma once

#include <cstdint>

#include "graphics/animated_sprite.h"

namespace mygame
{

/// A blast that plays once, centred on (x, y). It only shows; the harm is done when it appears.
struct Explosion {
    AnimatedSprite sprite;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t id = 0;
};

} // namespace mygame
