#include "replay/recorder.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <span>
#include <string_view>
#include <utility>

#include "platform/common/device_path.h"
#include "replay/picture_file.h"
#include "replay/trace.h"

namespace replay
{
namespace
{

/// The trace is written in pieces of about this many bytes.
constexpr std::size_t kTraceBufferBytes = 1 << 16;

template <class... Functions> struct Overloaded : Functions... {
    using Functions::operator()...;
};
template <class... Functions> Overloaded(Functions...) -> Overloaded<Functions...>;

} // namespace

Recorder::Recorder(platform::VirtualDevice &device, const Options &options) : device(device), options(options)
{
}

Recorder::~Recorder()
{
    device.onFrame = nullptr;
    if (traceFile && traceFile != stdout)
        std::fclose(traceFile);
}

bool Recorder::open()
{
    std::error_code error;
    std::filesystem::create_directories(options.snapshotFolder, error);
    if (error) {
        std::cerr << "replay: cannot make the folder '" << options.snapshotFolder << "': " << error.message()
                  << '\n';
        return false;
    }
    if (options.trace.empty())
        return true;
    traceFile = options.trace == "-" ? stdout : std::fopen(options.trace.c_str(), "wb");
    if (!traceFile)
        fail(options.trace);
    return !failed;
}

void Recorder::prepare(const Script &script)
{
    device.switchOn(script.clock);
    device.frameCostMs = script.frameCostMs;
    device.displayError = script.displayError;
    device.copyRunning = script.copyRunning;
    device.windowFails = script.windowFails;
    for (const std::string &name : script.hiddenFiles)
        device.hiddenFiles.insert(platform::common::toDevicePath(name));
    for (const TimedAction &timed : script.timeline)
        device.schedule(timed.atMs, [this, &timed] { carryOut(timed.action); });
}

void Recorder::carryOut(const Action &action)
{
    const Overloaded carrier = {
        [this](const Message &message) { device.post(message.number, message.wParam, message.lParam); },
        [this](const Foreground &change) {
            change.entered ? device.enterForeground() : device.leaveForeground();
        },
        [this](const FrameCost &cost) { device.frameCostMs = cost.ms; },
        [this](const FrameBuffer &change) { device.frameBufferOn = change.on; },
        [this](const Snapshot &snapshot) { wantedSnapshots.push_back(snapshot.name); },
    };
    std::visit(carrier, action);
}

void Recorder::watch(mygame::Program &program)
{
    device.onFrame = [this, &program] { recordFrame(program); };
}

void Recorder::recordFrame(mygame::Program &program)
{
    ++frames;
    writeSnapshots();
    if (traceFile) {
        appendFrame(trace, {frames, device.tick(), program.currentScreenName(), device.frameBuffer,
                            device.sounds, program.state()});
        if (trace.size() >= kTraceBufferBytes)
            flushTrace();
    }
    device.sounds.clear();
}

void Recorder::writeSnapshots()
{
    const auto *pixels = reinterpret_cast<const std::uint16_t *>(device.frameBuffer.data());
    const std::span picture(pixels, device.frameBuffer.size() / sizeof *pixels);
    for (const std::string &name : std::exchange(wantedSnapshots, {})) {
        const std::string path = options.snapshotFolder + '/' + name + ".png";
        if (!writePicture(path, picture, device.display.cxWidth))
            fail(path);
    }
}

void Recorder::flushTrace()
{
    if (std::fwrite(trace.data(), 1, trace.size(), traceFile) != trace.size() && !failed)
        fail(options.trace);
    trace.clear();
}

bool Recorder::close()
{
    if (traceFile) {
        flushTrace();
        if (std::fflush(traceFile) != 0 && !failed)
            fail(options.trace);
    }
    return !failed;
}

void Recorder::fail(const std::string &path)
{
    failed = true;
    std::cerr << "replay: cannot write '" << path << "': " << std::strerror(errno) << '\n';
}

} // namespace replay
