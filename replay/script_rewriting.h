#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "replay/script.h"

namespace replay
{

/// A timed line to be put into a script.
struct AddedLine {
    std::uint32_t atMs;
    std::string what; ///< All that follows the time.
};

/// The script's text, without the timed lines that are dropped and with others, whose times do not decrease.
/// Each comes behind the lines that are due no later, but before a `quit`, at whose time it is then at the
/// latest. All other lines stay as they are.
std::string rewritten(const Script &script, const std::function<bool(const TimedAction &)> &isDropped,
                      const std::vector<AddedLine> &added);

} // namespace replay
