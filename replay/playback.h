#pragma once

#include <cstdint>
#include <span>

#include "platform/virtual/virtual_device.h"
#include "replay/film.h"
#include "replay/options.h"
#include "replay/output_file.h"
#include "replay/pins.h"
#include "replay/script.h"
#include "replay/scripted_run.h"
#include "shell/startup.h"

namespace replay
{

/// One run of the program by a script: sets the device up as the script says, holds what is shown against its
/// checks, and writes it down as the options say. All three must live as long as it does.
class Playback
{
public:
    Playback(platform::VirtualDevice &device, const Options &options, const Script &script);
    Playback(const Playback &) = delete;
    Playback &operator=(const Playback &) = delete;
    ~Playback();

    /// Makes the folder for pictures and opens the files that are written on the way. @return false, with a
    /// line on standard error, when one cannot be written.
    bool open();

    /// Gives the device the script's properties and timeline. Before the program is built.
    void prepare();

    /// Follows this program's frames.
    void watch(mygame::Program &program);

    /// After the last frame: writes what is left, and says which checks were left unmet. @return false, with
    /// a line on standard error, when something could not be written.
    bool close();

    /// Whether all the script's checks were met. After `close`.
    bool checksMet() const { return checksMet_; }

private:
    void followFrame(mygame::Program &program, const ShownFrame &frame);
    void writeSnapshots(std::span<const std::uint16_t> picture);
    void writePinned();

    platform::VirtualDevice &device_;
    const Options &options_;
    const Script &script_;
    OutputFile trace_;
    OutputFile filmFile_;
    Film film_{filmFile_};
    Pins pins_;
    ScriptedRun run_;
    bool checksMet_ = true;
    bool failed_ = false;
};

} // namespace replay
