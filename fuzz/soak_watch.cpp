#include "fuzz/soak_watch.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "game/events.h"
#include "game/game_state.h"
#include "shell/application.h"
#include "shell/event_bus.h"

namespace soak
{
namespace
{

/// What a menu's rows, a message and the containers' spare room may differ by.
constexpr std::int64_t kAllocationSlack = 64;

/// Events that a frame may leave besides one for each explosion: a new game's and a resume.
constexpr std::size_t kEventSlack = 3;

std::int64_t living = 0;

template <class Record> bool keysMatch(const std::map<std::int32_t, Record> &table)
{
    return std::all_of(table.begin(), table.end(),
                       [](const auto &entry) { return entry.first == entry.second.id; });
}

} // namespace

std::int64_t livingAllocations() { return living; }

Watch::Watch(mygame::Program &program) : program(program)
{
    for (mygame::EventType type : {mygame::kTick, mygame::kNewGame})
        mygame::EventBus::instance().subscribe(type, this);
}

bool Watch::onEvent(const mygame::Event &event)
{
    if (event.type == mygame::kTick)
        ++ticks;
    else
        ++games;
    return false;
}

void Watch::require(bool holds, const char *what) const
{
    if (holds)
        return;
    std::fprintf(stderr, "soak: frame %llu, screen %s: %s\n", static_cast<unsigned long long>(frame),
                 lastScreen.c_str(), what);
    std::abort();
}

void Watch::check(std::uint64_t currentFrame)
{
    frame = currentFrame;
    checkScreen();
    if (ticks != seenTicks) {
        checkTables();
        checkPlayer();
        checkQueue();
    }
    seenTicks = ticks;
    checkMemory();
}

void Watch::checkScreen()
{
    std::string current;
    for (const char *name : {"SHOP", "GAME", "GAME_OVER", "MAIN_MENU", "MESSAGE", "ANIMSCREEN"}) {
        if (program.application().findScreen(name) == program.application().currentScreen())
            current = name;
    }
    require(!current.empty(), "the current screen is none of the six");
    if (current == "SHOP" && lastScreen != "SHOP")
        ++shopVisits;
    lastScreen = current;
}

void Watch::checkTables()
{
    const mygame::GameState &state = program.state();
    require(keysMatch(state.asteroids) && keysMatch(state.missiles) && keysMatch(state.explosions),
            "a table holds a record under another key than its id");
    std::set<std::int32_t> ids;
    for (const auto &[id, asteroid] : state.asteroids)
        ids.insert(ids.end(), id);
    for (const auto &[id, missile] : state.missiles)
        require(ids.insert(id).second, "an asteroid and a missile have one id");
    for (const std::int32_t id : ids)
        require(id > highestId || livingIds.contains(id), "an id was used again");
    if (!ids.empty())
        highestId = std::max(highestId, *ids.rbegin());
    livingIds = std::move(ids);
    if (!state.explosions.empty()) {
        const std::int32_t newest = state.explosions.rbegin()->first;
        require(newest >= highestExplosionId || state.explosions.contains(newest), "an explosion's id fell");
        highestExplosionId = std::max(highestExplosionId, newest);
    }
}

void Watch::checkPlayer() const
{
    const mygame::GameState &state = program.state();
    require(state.player.money >= 0, "money is negative");
    require(state.player.health <= mygame::Player::kFullHealth &&
                state.player.health >= mygame::Player::kNoGame,
            "health is out of its range");
    require(state.player.nukes >= 0, "nukes are negative");
    require(static_cast<std::int32_t>(state.missiles.size()) <= std::max(state.player.missileSlots, 0),
            "more missiles than slots");
    require(state.missileTravelTime >= 0, "missiles fly backwards");
}

void Watch::checkQueue() const
{
    require(mygame::EventBus::instance().waiting() <= program.state().explosions.size() + kEventSlack,
            "a delivery left events in the queue");
}

void Watch::checkMemory()
{
    if (lastScreen != "MAIN_MENU")
        return;
    const mygame::GameState &state = program.state();
    // A record in a table is one block, its sprite's frames another.
    const auto records = 2 * state.asteroids.size() + state.missiles.size() + 2 * state.explosions.size() +
                         2 * mygame::EventBus::instance().waiting() + livingIds.size();
    const std::int64_t resting = living - static_cast<std::int64_t>(records);
    if (restingAllocations < 0)
        restingAllocations = resting;
    require(resting <= restingAllocations + kAllocationSlack, "memory grows");
}

std::string Watch::report() const
{
    return std::to_string(games) + " games, " + std::to_string(ticks) + " simulation steps, " +
           std::to_string(shopVisits) + " visits to the shop, " + std::to_string(highestId) +
           " asteroids and missiles, " + std::to_string(highestExplosionId) + " explosions";
}

} // namespace soak

void *operator new(std::size_t size)
{
    void *block = std::malloc(size == 0 ? 1 : size);
    if (!block)
        std::abort();
    ++soak::living;
    return block;
}

void operator delete(void *block) noexcept
{
    if (block)
        --soak::living;
    std::free(block);
}

void operator delete(void *block, std::size_t) noexcept { operator delete(block); }
