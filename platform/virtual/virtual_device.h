/// The device that tests and `replay` run on: its clock, messages, display, sounds and faults are set and
/// seen from outside, and nothing on it takes time but what is said here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/frame_buffer.h"
#include "platform/window.h"

namespace platform
{

class VirtualDevice
{
public:
    /// The one device of the process, which all operations of the platform headers act on.
    static VirtualDevice &instance();

    /// Back to a fresh device on which no program has started.
    static void reset();

    // The clock. Only `Sleep` and `GXEndDraw` move it.

    /// Switches the device on: the clock stands at `tick`, and timed lines count from there.
    void switchOn(std::uint32_t tick);
    std::uint32_t tick() const { return tick_; }
    void advance(std::uint32_t milliseconds);

    // What the player and the device do.

    /// Carries out an action at the first poll for messages at which `atMs` or more have passed since the
    /// device was switched on. Actions are carried out in the order of these calls; times must not decrease.
    void schedule(std::uint32_t atMs, std::function<void()> action);
    void post(std::uint32_t message, std::uint32_t wParam, std::uint32_t lParam);
    void leaveForeground();
    void enterForeground();

    // Faults and properties, to be set before the program starts.

    std::optional<std::uint32_t> displayError; ///< Opening the display fails with this system error.
    bool copyRunning = false;                  ///< Another copy of the program has a window.
    bool windowFails = false;                  ///< No window can be created.
    bool standardDisplay = true;
    GXDisplayProperties display{240, 320, 2, 480, 16, kfDirect565};
    std::u16string executable = u"\\device\\mygame.exe";
    std::string dataFolder;               ///< Host folder whose files lie beside the executable.
    std::set<std::u16string> hiddenFiles; ///< Names of data files that count as missing.

    // What may change at any time.

    std::uint32_t frameCostMs = 16; ///< Passes when a frame is presented.
    bool frameBufferOn = true;      ///< Off: `GXBeginDraw` returns null.

    /// Called when a frame is presented, before its cost passes.
    std::function<void()> onFrame;
    /// Called at every poll for messages, before anything that is due.
    std::function<void()> onPoll;
    /// Called when the clock can never move again: the program has polled `kPollsWithoutEnd` times in a row
    /// without a message and without the clock moving.
    std::function<void()> onStandstill;
    static constexpr int kPollsWithoutEnd = 100000;

    // What the program did.

    /// The frame buffer's memory, zero at the start.
    std::vector<std::byte> frameBuffer;
    /// The pixel at the top left, from which the pitches count; after the first look at the display.
    std::byte *topLeft();
    std::vector<std::u16string> sounds; ///< Names of the sounds started, without their folder.
    bool recordCalls = false;           ///< Note the calls of window, display and buttons in `calls`.
    std::vector<std::string> calls;

    // For the implementation of the platform headers.

    void note(const std::string &call);
    bool poll(MSG &message);
    bool inForeground() const { return foreground; }
    /// The host's path of a file beside the executable, empty for a hidden one and for any other folder.
    std::string hostPath(const std::u16string &path) const;

private:
    struct TimedAction {
        std::uint32_t atMs;
        std::function<void()> action;
    };

    void carryOutDueActions();
    void countIdlePoll();

    std::uint32_t tick_ = 1000000;
    std::uint32_t startTick = 1000000;
    std::deque<TimedAction> actions;
    std::deque<MSG> messages;
    bool foreground = true;
    int idlePolls = 0;
};

} // namespace platform
