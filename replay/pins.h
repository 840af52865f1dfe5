#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "replay/script.h"
#include "replay/script_rewriting.h"

namespace replay
{

/// Chooses the frames of a run that a script is to check, and writes the script with these checks: the first
/// frame shown in each whole second since the start, and the last one. A frame that no timed line can be
/// about, since the program polled at the same time or later before, is passed over.
class Pins
{
public:
    /// The program polls; the time is in milliseconds since the start, as scripts count it.
    void poll(std::uint32_t atMs);

    /// A frame is shown at the time of the last poll.
    void show(std::uint32_t runningChecksum);

    /// The script without its checks and with those for the frames shown.
    std::string pinned(const Script &script) const;

private:
    struct Pin {
        std::uint32_t atMs;
        std::uint32_t checksum;
    };

    std::vector<Pin> pins_;
    std::optional<Pin> last_; ///< The last frame that a line can be about.
    std::uint32_t polledMs_ = 0;
    std::uint32_t latestPolledMs_ = 0;
};

} // namespace replay
