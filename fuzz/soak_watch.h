#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "shell/event_listener.h"
#include "shell/startup.h"

namespace soak
{

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

private:
    void require(bool holds, const char *what) const;
    void checkScreen();
    void checkTables();
    void checkPlayer() const;
    void checkQueue() const;
    void checkMemory();

    mygame::Program &program;
    std::uint64_t frame = 0;
    std::int64_t ticks = 0;     ///< Simulation steps so far.
    std::int64_t seenTicks = 0; ///< At the last check.
    std::int32_t highestId = 0;
    std::int32_t highestExplosionId = 0;
    std::set<std::int32_t> livingIds;
    std::string lastScreen;
    std::uint64_t shopVisits = 0;
    std::uint64_t games = 0;
    std::int64_t restingAllocations = -1; ///< At the first visit to the main menu.
};

/// Blocks of memory that the process holds from `new` now.
std::int64_t livingAllocations();

} // namespace soak
