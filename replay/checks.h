#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "replay/script.h"

namespace replay
{

/// The checks of a script, held against the frames that are shown.
class Checks
{
public:
    /// Told once of each check that is not met: its line in the script, from 1, and the frame that should
    /// have met it.
    using Report = std::function<void(std::size_t line, std::uint64_t frame)>;

    Checks(const Script &script, Report reportUnmet);

    bool any() const { return !checks_.empty(); }

    /// The script's next check is due: it is about the next frame.
    void carryOut() { ++due_; }

    /// A frame was shown.
    void compare(std::uint64_t frame, std::uint32_t runningChecksum);

    /// The run is over after so many frames. What no frame followed is not met, whether it was due or not.
    void finish(std::uint64_t frames);

    bool areMet() const { return areMet_; }

private:
    struct Expected {
        std::size_t line;
        std::uint32_t checksum;
    };

    void reportUnmet(const Expected &check, std::uint64_t frame);

    Report report_;
    std::vector<Expected> checks_; ///< In the script's order.
    std::size_t due_ = 0;          ///< So many of them were due,
    std::size_t compared_ = 0;     ///< and so many have seen their frame.
    bool areMet_ = true;
};

} // namespace replay
