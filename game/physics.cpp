#include "game/physics.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "game/events.h"
#include "shell/event_bus.h"

namespace mygame
{
namespace
{

constexpr std::int32_t kEarthTop = 260;
constexpr std::int32_t kEarthCentreX = 113;
/// The Earth's edge falls by this much ...
constexpr std::int32_t kEarthFall = 25;
/// ... on this many pixels to either side.
constexpr std::int32_t kEarthFallWidth = 120;
constexpr std::int32_t kEarthHitDamage = 10;

constexpr double kTravelUnitsPerPixel = 1.0 / 300;

std::int32_t along(std::int32_t from, std::int32_t to, Ms ms, Ms flightMs)
{
    return from + (to - from) * ms / flightMs;
}

std::int32_t squaredLength(std::int32_t dx, std::int32_t dy) { return dx * dx + dy * dy; }

std::int32_t earthEdge(std::int32_t x)
{
    return kEarthTop + std::abs(x - kEarthCentreX) * kEarthFall / kEarthFallWidth;
}

} // namespace

void moveAsteroid(Asteroid &asteroid, Tick now)
{
    const Ms ms = msBetween(asteroid.spawnTime, now);
    asteroid.x = along(asteroid.startX, asteroid.targetX, ms, asteroid.flightMs);
    asteroid.y = along(asteroid.startY, asteroid.targetY, ms, asteroid.flightMs);
    if (asteroid.y > kEarthTop && asteroid.y > earthEdge(asteroid.x)) {
        EventBus::instance().post<EarthHitEvent>(kEarthHitDamage);
        EventBus::instance().post<AsteroidDestroyedEvent>(asteroid.id, asteroid.x, asteroid.y);
    }
}

void moveMissile(Missile &missile, Tick now)
{
    const Ms ms = msBetween(missile.launchTime, now);
    const bool flies = missile.flightMs > 0;
    if (flies) {
        missile.x = along(missile.startX, missile.targetX, ms, missile.flightMs);
        missile.y = along(missile.startY, missile.targetY, ms, missile.flightMs);
    }
    // Kept: not at the end of its flight but after it, where it has gone past its target.
    if (!flies || ms > missile.flightMs)
        EventBus::instance().post<MissileDetonatedEvent>(missile.id, missile.x, missile.y);
}

bool inRange(const Asteroid &asteroid, const Missile &missile, std::int32_t radius)
{
    // Kept: a square that wraps to a negative number is in range.
    return squaredLength(asteroid.x - missile.x, asteroid.y - missile.y) < radius * radius;
}

Ms missileFlightMs(std::int32_t dx, std::int32_t dy, Ms travelTime)
{
    // Kept: the square of a distance far outside the screen wraps, and may come out negative.
    const double squared = std::max(squaredLength(dx, dy), 0);
    return static_cast<Ms>(std::sqrt(squared) * kTravelUnitsPerPixel * travelTime);
}

} // namespace mygame
