/// A device in memory: its clock, messages, display, sounds and faults are set and seen from outside, and
/// nothing on it takes time but what is said here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/device.h"

namespace platform
{

class VirtualDevice : public Device
{
public:
    // The clock. Only `sleep` and `endDraw` move it, and who calls `advance`.

    /// Switches the device on: the clock stands at `tick`, and timed actions count from there.
    void switchOn(Tick tick);
    void advance(std::uint32_t milliseconds);
    /// Milliseconds since the device was switched on; it does not wrap.
    std::uint64_t elapsedMs() const { return elapsedMs_; }

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

    /// Milliseconds that pass when a frame is presented, where no refresh rate is set.
    std::uint32_t frameCostMs = 16;
    /// Refreshes in a second, towards which presenting a frame moves the clock; 0 while the frame cost
    /// counts.
    std::uint32_t refreshRate = 0;
    bool frameBufferOn = true; ///< Off: there is no frame buffer to draw into.

    /// Called when a frame is presented, before the clock moves.
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
    std::vector<std::string> sounds; ///< Host names of the sounds started, without their folder.
    bool recordCalls = false;        ///< Note the calls of window, display and buttons in `calls`.
    std::vector<std::string> calls;

    // The device.

    Tick tick() const override { return startTick_ + static_cast<Tick>(elapsedMs_); }
    void sleep(std::uint32_t milliseconds) override { advance(milliseconds); }
    bool poll(MSG &message) override;
    bool createWindow(const std::string &) override { return !windowFails; }
    bool showWindow(bool) override { return false; }
    void raiseWindow() override {}
    bool inForeground() const override { return foreground_; }
    bool isOtherCopyRunning() override { return copyRunning; }
    void raiseOtherCopy() override {}
    std::uint32_t openDisplay() override { return displayError.value_or(0); }
    void closeDisplay() override {}
    GXDisplayProperties displayProperties() const override { return display; }
    std::uint32_t displayRate() const override { return refreshRate; }
    bool isStandardDisplay() const override { return standardDisplay; }
    void *beginDraw() override;
    void endDraw() override;
    std::u16string programPath() const override { return executable; }
    /// Empty for a hidden file and for any other folder than the executable's.
    std::string hostFile(const std::u16string &path) const override;
    void startSound(const std::string &hostFile) override;
    std::vector<std::string> *callNotes() override { return recordCalls ? &calls : nullptr; }

private:
    struct TimedAction {
        std::uint32_t atMs;
        std::function<void()> action;
    };

    void carryOutDueActions();
    void countIdlePoll();

    Tick startTick_ = 1000000;
    std::uint64_t elapsedMs_ = 0;
    std::deque<TimedAction> actions_;
    std::deque<MSG> messages_;
    bool foreground_ = true;
    int idlePolls_ = 0;
};

} // namespace platform
