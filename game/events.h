/// The catalogue of game events: what can happen, and what each event tells.
#pragma once

#include <cstdint>

#include "shell/event_bus.h"

namespace mygame
{

enum EventType : std::int32_t {
    kNewGame = 1,
    kResume = 2,
    kPause = 3,
    kTick = 4,
    kAsteroidSpawned = 5,
    kAsteroidDestroyed = 7,
    kFire = 8,
    kMissileLaunched = 9,
    kMissileDetonated = 11,
    kEarthHit = 12,
    kExplosionFinished = 13,
    kGameEnded = 14,
    kWaveComplete = 15,
    kNuke = 16,
    kNukeFlash = 17,
};

/// An event that tells no more than that it happened.
template <EventType Type> class PlainEvent : public Event
{
public:
    PlainEvent() : Event(Type) {}
};

/// An event about the record with this key in its table.
template <EventType Type> class ObjectEvent : public Event
{
public:
    explicit ObjectEvent(std::int32_t id) : Event(Type), id(id) {}

    const std::int32_t id;
};

/// An event about a record and a place on the screen. The record may be gone by the time of delivery.
template <EventType Type> class PlacedObjectEvent : public Event
{
public:
    PlacedObjectEvent(std::int32_t id, std::int32_t x, std::int32_t y) : Event(Type), id(id), x(x), y(y) {}

    const std::int32_t id;
    const std::int32_t x;
    const std::int32_t y;
};

/// Start a new game with the mode and difficulty now in the game state.
using NewGameEvent = PlainEvent<kNewGame>;
/// The game continues after a pause.
using ResumeEvent = PlainEvent<kResume>;
/// The game stops for the in-game menu.
using PauseEvent = PlainEvent<kPause>;
/// One simulation step is due.
using TickEvent = PlainEvent<kTick>;
/// A new asteroid exists and needs its look.
using AsteroidSpawnedEvent = ObjectEvent<kAsteroidSpawned>;
/// An asteroid is to be removed; an explosion belongs at its place.
using AsteroidDestroyedEvent = PlacedObjectEvent<kAsteroidDestroyed>;
/// A new missile exists and needs its look.
using MissileLaunchedEvent = ObjectEvent<kMissileLaunched>;
/// A missile explodes.
using MissileDetonatedEvent = PlacedObjectEvent<kMissileDetonated>;
/// An explosion's animation has played to its end.
using ExplosionFinishedEvent = ObjectEvent<kExplosionFinished>;
/// The game is won or lost, or its time is up.
using GameEndedEvent = PlainEvent<kGameEnded>;
/// A campaign wave is over; the shop opens.
using WaveCompleteEvent = PlainEvent<kWaveComplete>;
/// The player tapped the nuke button.
using NukeEvent = PlainEvent<kNuke>;
/// A nuke went off; the screen flashes.
using NukeFlashEvent = PlainEvent<kNukeFlash>;

/// The player tapped the playfield.
class FireEvent : public Event
{
public:
    FireEvent(std::int32_t x, std::int32_t y) : Event(kFire), x(x), y(y) {}

    const std::int32_t x;
    const std::int32_t y;
};

/// An asteroid struck the Earth.
class EarthHitEvent : public Event
{
public:
    explicit EarthHitEvent(std::int32_t damage) : Event(kEarthHit), damage(damage) {}

    const std::int32_t damage;
};

} // namespace mygame
