/// What a device must do, so that the handheld's calls (`platform/calls`) work on it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/frame_buffer.h"
#include "platform/window.h"

namespace platform
{

/// A machine that the program runs on. Whoever starts the program makes one and puts it in use; everything
/// that the program asks of its surroundings ends here.
class Device
{
public:
    Device() = default;
    Device(const Device &) = delete;
    Device &operator=(const Device &) = delete;
    virtual ~Device() = default;

    // The clock.

    virtual Tick tick() const = 0;
    /// As `platform::Sleep`.
    virtual void sleep(std::uint32_t milliseconds) = 0;

    // What the player does, and the one window.

    /// Takes the oldest waiting message, without ever waiting itself. @return false, leaving the argument
    /// alone, when there is none.
    virtual bool poll(MSG &message) = 0;
    /// Makes the window, hidden; the title is UTF-8. @return false when it cannot be made.
    virtual bool createWindow(const std::string &title) = 0;
    /// @return whether the window was visible before.
    virtual bool showWindow(bool visible) = 0;
    virtual void raiseWindow() = 0;
    virtual bool inForeground() const = 0;
    /// Looks for another copy of the program, and claims its place where there is none.
    virtual bool isOtherCopyRunning() = 0;
    virtual void raiseOtherCopy() = 0;

    // The display.

    /// @return 0, or the system error that says why not.
    virtual std::uint32_t openDisplay() = 0;
    virtual void closeDisplay() = 0;
    virtual GXDisplayProperties displayProperties() const = 0;
    /// False where the frame buffer is ordinary memory that the display copies from.
    virtual bool isStandardDisplay() const { return true; }
    /// The top-left pixel of the frame buffer; null while it cannot be had.
    virtual void *beginDraw() = 0;
    /// How often the display refreshes, in Hz; 0 where showing a frame takes a time of its own.
    virtual std::uint32_t displayRate() const = 0;
    /// Shows what was drawn and moves the clock. Waits where the device has something to wait for.
    virtual void endDraw() = 0;

    // Files and sound.

    /// The executable's full path in the device's form, folders separated by backslashes.
    virtual std::u16string programPath() const = 0;
    /// The host's path of a file that the program names by a full path; empty when there can be none.
    virtual std::string hostFile(const std::u16string &path) const = 0;
    /// Starts a WAV file, given by its host path, in place of the sound that plays.
    virtual void startSound(const std::string &hostFile) = 0;

    /// Where calls about window, display and buttons are noted, as "NAME ARGUMENT ..."; null is nowhere.
    virtual std::vector<std::string> *callNotes() { return nullptr; }
};

/// Puts a device in use, from before the program is built until after it is gone.
void useDevice(Device &device);

/// The device in use. There must be one.
Device &device();

} // namespace platform
