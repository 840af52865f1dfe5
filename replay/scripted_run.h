#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/virtual/virtual_device.h"
#include "replay/checks.h"
#include "replay/checksum.h"
#include "replay/script.h"

namespace replay
{

/// A frame of the program, as it is shown.
struct ShownFrame {
    std::uint64_t number; ///< From 1.
    std::span<const std::uint16_t> picture;
    std::uint32_t checksum;        ///< Of the picture,
    std::uint32_t runningChecksum; ///< and of all so far; both 0 where nobody asks for them.
};

/// A virtual device that does what a script says, and whose frames are held against the script's checks. Both
/// must outlive the run.
class ScriptedRun
{
public:
    ScriptedRun(platform::VirtualDevice &device, const Script &script, Checks::Report reportUnmet);
    ScriptedRun(const ScriptedRun &) = delete;
    ScriptedRun &operator=(const ScriptedRun &) = delete;
    ~ScriptedRun();

    /// Computes checksums also where the script has no checks.
    void wantChecksums() { wantsChecksums_ = true; }

    /// Gives the device the script's properties and timeline. Before the program is built.
    void prepare();

    /// To be told of every frame.
    std::function<void(const ShownFrame &)> onFrame;

    /// The names of the snapshots that were asked for since the last call.
    std::vector<std::string> takeSnapshots() { return std::exchange(snapshots_, {}); }

    /// After the last frame. @return whether all the script's checks were met.
    bool finish();

private:
    void carryOut(const Action &action);
    void followFrame();

    platform::VirtualDevice &device_;
    const Script &script_;
    Checks checks_;
    bool wantsChecksums_;
    PictureChecksum pictureChecksum_;
    RunningChecksum runningChecksum_;
    std::uint64_t frames_ = 0;
    std::vector<std::string> snapshots_;
};

} // namespace replay
