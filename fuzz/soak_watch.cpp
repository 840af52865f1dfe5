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

bool IdWatch::take(std::set<std::int32_t> ids)
{
    for (const std::int32_t id : ids) {
        if (id <= highest && !living.contains(id))
            return false;
    }
    if (!ids.empty())
        highest = std::max(highest, *ids.rbegin());
    living = std::move(ids);
    return true;
}

Watch::Watch(mygame::Program &program) : program_(program)
{
    for (mygame::EventType type : {mygame::kTick, mygame::kNewGame})
        mygame::EventBus::instance().subscribe(type, this);
}

bool Watch::onEvent(const mygame::Event &event)
{
    if (event.type == mygame::kTick)
        ++ticks_;
    else
        ++games_;
    return false;
}

void Watch::require(bool holds, const char *what) const
{
    if (holds)
        return;
    std::fprintf(stderr, "soak: frame %llu, screen %s: %s\n", static_cast<unsigned long long>(frame_),
                 lastScreen_.c_str(), what);
    onBroken();
    std::abort();
}

void Watch::check(std::uint64_t currentFrame)
{
    frame_ = currentFrame;
    checkScreen();
    if (ticks_ != seenTicks_) {
        checkTables();
        checkPlayer();
        checkQueue();
    }
    seenTicks_ = ticks_;
    checkMemory();
}

void Watch::checkScreen()
{
    const std::string current = program_.currentScreenName();
    require(!current.empty(), "the current screen is none of the six");
    if (current == "SHOP" && lastScreen_ != "SHOP")
        ++shopVisits_;
    lastScreen_ = current;
}

void Watch::checkTables()
{
    const mygame::GameState &state = program_.state();
    require(keysMatch(state.asteroids) && keysMatch(state.missiles) && keysMatch(state.explosions),
            "a table holds a record under another key than its id");
    std::set<std::int32_t> ids;
    for (const auto &[id, asteroid] : state.asteroids)
        ids.insert(ids.end(), id);
    for (const auto &[id, missile] : state.missiles)
        require(ids.insert(id).second, "an asteroid and a missile have one id");
    require(objects_.take(std::move(ids)), "an id was used again");
    std::set<std::int32_t> explosionIds;
    for (const auto &[id, explosion] : state.explosions)
        explosionIds.insert(explosionIds.end(), id);
    require(explosions_.take(std::move(explosionIds)), "an explosion's id was used again");
}

void Watch::checkPlayer() const
{
    const mygame::GameState &state = program_.state();
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
    require(mygame::EventBus::instance().waiting() <= program_.state().explosions.size() + kEventSlack,
            "a delivery left events in the queue");
}

void Watch::checkMemory()
{
    if (lastScreen_ != "MAIN_MENU")
        return;
    const mygame::GameState &state = program_.state();
    // A record in a table is one block, its sprite's frames another.
    const auto records = 2 * state.asteroids.size() + state.missiles.size() + 2 * state.explosions.size() +
                         2 * mygame::EventBus::instance().waiting() + objects_.living.size() +
                         explosions_.living.size();
    const std::int64_t resting = living - static_cast<std::int64_t>(records);
    if (restingAllocations_ < 0)
        restingAllocations_ = resting;
    require(resting <= restingAllocations_ + kAllocationSlack, "memory grows");
}

std::string Watch::report() const
{
    return std::to_string(games_) + " games, " + std::to_string(ticks_) + " simulation steps, " +
           std::to_string(shopVisits_) + " visits to the shop, " + std::to_string(objects_.highest) +
           " asteroids and missiles, " + std::to_string(explosions_.highest) + " explosions";
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
