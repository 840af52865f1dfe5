#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/virtual/virtual_device.h"
#include "shell/startup.h"
#include "replay/options.h"
#include "replay/script.h"

namespace replay
{

/// Sets a device up as a script says, and writes down what a program shows on it.
class Recorder
{
public:
    Recorder(platform::VirtualDevice &device, const Options &options);
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;
    ~Recorder();

    /// Makes the output folder and opens the trace. @return false, with a line on standard error, when an
    /// output cannot be written.
    bool open();

    /// Gives the device the script's properties and timeline. Before the program is built; the script must
    /// live as long as it runs.
    void prepare(const Script &script);

    /// Records this program's frames.
    void watch(mygame::Program &program);

    /// Writes what is left. @return false, with a line on standard error, when an output could not be
    /// written.
    bool close();

private:
    void carryOut(const Action &action);
    void recordFrame(mygame::Program &program);
    void writeSnapshots();
    void flushTrace();
    void fail(const std::string &path);

    platform::VirtualDevice &device;
    const Options &options;
    std::FILE *traceFile = nullptr;
    std::string trace; ///< Not yet written.
    std::uint64_t frames = 0;
    std::vector<std::string> wantedSnapshots; ///< Of the next frame.
    bool failed = false;
};

} // namespace replay
