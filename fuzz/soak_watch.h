#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>

#include "shell/event_bus.h"
#include "shell/startup.h"

namespace soak
{

/// Ids that only grow: none may come back once it is gone.
struct IdWatch {
    std::int32_t highest = 0;
    std::set<std::int32_t> living;

    /// Takes the ids that live now. @return false when one among them was used before.
    bool take(std::set<std::int32_t> ids);
};

/// Checks what must hold at all times, and ends the process with a line that says what does not.
class Watch final : public mygame::EventListener
{
public:
    /// Subscribes to the bus for good.
    explicit Watch(mygame::Program &program);

    /// To be called at the beginning of every pass of the main loop.
    void check(std::uint64_t frame);

    bool onEvent(const mygame::Event &event) override;

    std::string report() const;

    /// Called when something does not hold, before the end.
    std::function<void()> onBroken = [] {};

private:
    void require(bool holds, const char *what) const;
    void checkScreen();
    void checkTables();
    void checkPlayer() const;
    void checkQueue() const;
    void checkMemory();

    mygame::Program &program_;
    std::uint64_t frame_ = 0;
    std::int64_t ticks_ = 0;     ///< Simulation steps so far.
    std::int64_t seenTicks_ = 0; ///< At the last check.
    IdWatch objects_;            ///< Asteroids and missiles, which share their ids.
    IdWatch explosions_;
    std::string lastScreen_;
    std::uint64_t shopVisits_ = 0;
    std::uint64_t games_ = 0;
    std::int64_t restingAllocations_ = -1; ///< At the first visit to the main menu.
};

} // namespace soak
