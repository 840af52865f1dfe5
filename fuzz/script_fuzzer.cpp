/// Bytes as a replay script: parsed, and, when they are one, the whole program run by it for a while.
#include "replay/script.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <variant>

#include "fuzz/fuzzer.h"
#include "platform/virtual/virtual_device.h"
#include "replay/options.h"
#include "replay/playback.h"
#include "shell/event_bus.h"
#include "shell/startup.h"

namespace
{

/// The program polls once for each message and once more in a pass, of which each but a waiting one draws a
/// frame.
constexpr int kMostPolls = 1500;

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "script_fuzzer: %s\n", what);
    std::abort();
}

void checkFault(const replay::ScriptFault &fault, std::string_view text)
{
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    require(fault.line >= 1 && fault.line <= lines, "a fault is in no line of the script");
    require(!fault.what.empty() && fault.what.find('\n') == std::string::npos,
            "a fault is not told in one line");
}

/// Pictures would fill the disk.
void leaveOutSnapshots(replay::Script &script)
{
    std::erase_if(script.timeline, [](const replay::TimedAction &timed) {
        return std::holds_alternative<replay::Snapshot>(timed.action);
    });
}

/// The end comes when the script says so, or after a while.
void limitPolls(platform::VirtualDevice &device)
{
    device.onPoll = [&device, polls = 0]() mutable {
        if (++polls == kMostPolls)
            device.post(platform::WM_QUIT, 0, 0);
    };
}

/// A program, a device and a bus of its own for every script, so that each does the same whatever ran before.
void run(const replay::Script &script)
{
    mygame::EventBus::instance() = {};
    platform::VirtualDevice device;
    platform::useDevice(device);
    device.dataFolder = MYGAME_DATA;
    limitPolls(device);
    replay::Options options;
    options.trace = "/dev/null";
    replay::Playback playback(device, options, script);
    require(playback.open(), "the trace cannot be opened");
    playback.prepare();
    mygame::Program program;
    playback.watch(program);
    program.run(nullptr, platform::SW_SHOW);
    require(playback.close(), "the trace cannot be written");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(bytes), size);
    replay::Script script;
    if (const auto fault = replay::parseScript(text, script)) {
        checkFault(*fault, text);
        return 0;
    }
    require(!script.timeline.empty(), "a script without a line was accepted");
    leaveOutSnapshots(script);
    run(script);
    return 0;
}
