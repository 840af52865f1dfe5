#pragma once

#include <cstddef>
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

/// The display refreshes so many times a second from now on, and presenting a frame waits for that.
struct Refresh {
    std::uint32_t rate;
};

/// The frame buffer can be had from now on, or cannot.
struct FrameBuffer {
    bool on;
};

/// The next presented frame is to be written as a picture.
struct Snapshot {
    std::string name;
};

/// The next presented frame, and all before it, are to have this running checksum.
struct Check {
    std::uint32_t checksum;
};

using Action = std::variant<Message, Foreground, FrameCost, Refresh, FrameBuffer, Snapshot, Check>;

struct TimedAction {
    std::uint32_t atMs; ///< Since the program's start.
    Action action;
    std::size_t line; ///< Of the text, from 1; 0 for the quit that stands in none.
};

/// What the player and the device do in one run of the program.
struct Script {
    std::string text; ///< As it was read.
    std::uint32_t clock = 1000000;
    std::uint32_t frameCostMs = 16;
    std::uint32_t refreshRate = 0; ///< A second; 0 where the frame cost counts.
    std::optional<std::uint32_t> displayError;
    bool copyRunning = false;
    bool windowFails = false;
    std::vector<std::string> hiddenFiles;
    std::vector<TimedAction>
        timeline; ///< In the order of the script; times do not decrease; a quit comes last.
};

struct ScriptFault {
    std::size_t line = 0; ///< From 1.
    std::string what;
};

/// Reads a whole script. One that was cut short, so that its last timed line is no `quit`, gets a quit right
/// behind that line. @return the first fault in it, or nothing when `script` holds what it says.
std::optional<ScriptFault> parseScript(std::string_view text, Script &script);

/// Whether an action asks the program to end.
bool isQuit(const Action &action);

} // namespace replay
