/// How single objects move, and when two are close.
#pragma once

#include <cstdint>

#include "game/objects.h"

namespace mygame
{

/// Moves an asteroid to its place at a tick; one that is below the Earth's edge there posts the hit and its
/// own destruction.
void moveAsteroid(Asteroid &asteroid, Tick now);

/// Moves a missile to its place at a tick; after the end of its flight it posts its detonation.
void moveMissile(Missile &missile, Tick now);

/// True when the two centres are strictly closer than `radius` pixels.
bool inRange(const Asteroid &asteroid, const Missile &missile, std::int32_t radius);

/// How long a missile flies over dx, dy pixels when it takes `travelTime` for 300.
Ms missileFlightMs(std::int32_t dx, std::int32_t dy, Ms travelTime);

} // namespace mygame
