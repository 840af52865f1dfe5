#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "game/game_state.h"

namespace replay
{

/// All that one line of a trace tells.
struct FrameRecord {
    std::uint64_t number; ///< 1 for the first presented frame.
    std::uint32_t tick;
    std::string_view screen;
    std::uint32_t checksum;              ///< Of the picture.
    std::span<const std::string> sounds; ///< Started since the previous frame.
    const mygame::GameState &state;
};

/// A frame as one line of JSON with its line feed.
std::string traceLine(const FrameRecord &frame);

} // namespace replay
