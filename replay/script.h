#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace replay
{

/// A window message to queue.
struct Message {
    std::uint32_t number = 0;
    std::uint32_t wParam = 0;
    std::uint32_t lParam = 0;
};

/// The window leaves the foreground or comes back.
struct Foreground {
    bool entered;
};

/// Presenting a frame takes this long from now on.
struct FrameCost {
    std::uint32_t ms;
};

/// The frame buffer can be had from now on, or cannot.
struct FrameBuffer {
    bool on;
};

/// The next presented frame is to be written as a picture.
struct Snapshot {
    std::string name;
};

using Action = std::variant<Message, Foreground, FrameCost, FrameBuffer, Snapshot>;

struct TimedAction {
    std::uint32_t atMs; ///< Since the program's start.
    Action action;
};

/// What the player and the device do in one run of the program.
struct Script {
    std::uint32_t clock = 1000000;
    std::uint32_t frameCostMs = 16;
    std::optional<std::uint32_t> displayError;
    bool copyRunning = false;
    bool windowFails = false;
    std::vector<std::string> hiddenFiles;
    std::vector<TimedAction> timeline; ///< In the order of the script; times do not decrease.
};

struct ScriptFault {
    std::size_t line = 0; ///< From 1.
    std::string what;
};

/// Reads a whole script. @return the first fault in it, or nothing when `script` holds what it says.
std::optional<ScriptFault> parseScript(std::string_view text, Script &script);

} // namespace replay
