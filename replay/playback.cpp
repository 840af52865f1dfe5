#include "replay/playback.h"

#include <filesystem>
#include <iostream>
#include <span>
#include <utility>

#include "platform/common/device_path.h"
#include "platform/common/file_path.h"
#include "replay/picture_file.h"
#include "replay/trace.h"

namespace replay
{
namespace
{

template <class... Functions> struct Overloaded : Functions... {
    using Functions::operator()...;
};
template <class... Functions> Overloaded(Functions...) -> Overloaded<Functions...>;

/// Opens a file for an option's value; none is wanted for an empty one.
bool openOutput(OutputFile &file, const std::string &path)
{
    if (path != kStandardOutput)
        return path.empty() || file.open(path);
    file.openStandardOutput();
    return true;
}

} // namespace

Playback::Playback(platform::VirtualDevice &device, const Options &options, const Script &script)
    : device_(device), options_(options), script_(script), checks_(script, options.script)
{
}

Playback::~Playback()
{
    device_.onFrame = nullptr;
    device_.onPoll = nullptr;
}

bool Playback::open()
{
    std::error_code error;
    std::filesystem::create_directories(platform::common::filePath(options_.snapshotFolder), error);
    if (error) {
        std::cerr << "replay: cannot make the folder '" << options_.snapshotFolder << "': " << error.message()
                  << '\n';
        return false;
    }
    return openOutput(trace_, options_.trace) && openOutput(filmFile_, options_.frames);
}

void Playback::prepare()
{
    device_.switchOn(script_.clock);
    device_.frameCostMs = script_.frameCostMs;
    device_.refreshRate = script_.refreshRate;
    device_.displayError = script_.displayError;
    device_.copyRunning = script_.copyRunning;
    device_.windowFails = script_.windowFails;
    for (const std::string &name : script_.hiddenFiles)
        device_.hiddenFiles.insert(platform::common::toDevicePath(name));
    for (const TimedAction &timed : script_.timeline)
        device_.schedule(timed.atMs, [this, &timed] { carryOut(timed.action); });
}

void Playback::carryOut(const Action &action)
{
    const Overloaded carrier = {
        [this](const Message &message) { device_.post(message.number, message.wParam, message.lParam); },
        [this](const Foreground &change) {
            if (change.entered)
                device_.enterForeground();
            else
                device_.leaveForeground();
        },
        [this](const FrameCost &cost) {
            device_.frameCostMs = cost.ms;
            device_.refreshRate = 0;
        },
        [this](const Refresh &refresh) { device_.refreshRate = refresh.rate; },
        [this](const FrameBuffer &change) { device_.frameBufferOn = change.on; },
        [this](const Snapshot &snapshot) { wantedSnapshots_.push_back(snapshot.name); },
        [this](const Check &) { checks_.carryOut(); },
    };
    std::visit(carrier, action);
}

void Playback::watch(mygame::Program &program)
{
    device_.onFrame = [this, &program] { followFrame(program); };
    if (!options_.pin.empty())
        device_.onPoll = [this] { pins_.poll(static_cast<std::uint32_t>(device_.elapsedMs())); };
}

void Playback::followFrame(mygame::Program &program)
{
    const auto *pixels = reinterpret_cast<const std::uint16_t *>(device_.frameBuffer.data());
    const std::span picture(pixels, device_.frameBuffer.size() / sizeof *pixels);
    ++frames_;
    writeSnapshots(picture);
    const std::uint32_t checksum = addChecksum(picture);
    checks_.compare(frames_, checksum_.value());
    if (!options_.pin.empty())
        pins_.show(checksum_.value());
    if (filmFile_.isOpen())
        film_.show(device_.elapsedMs(), picture);
    if (trace_.isOpen()) {
        const char *screen = program.currentScreenName();
        trace_.write(traceLine({frames_, device_.tick(), screen, checksum, device_.sounds, program.state()}));
    }
    device_.sounds.clear();
}

std::uint32_t Playback::addChecksum(std::span<const std::uint16_t> picture)
{
    if (!trace_.isOpen() && options_.pin.empty() && !checks_.any())
        return 0;
    const std::uint32_t checksum = pictureChecksum(picture);
    checksum_.add(checksum);
    return checksum;
}

void Playback::writeSnapshots(std::span<const std::uint16_t> picture)
{
    for (const std::string &name : std::exchange(wantedSnapshots_, {})) {
        const std::string path = options_.snapshotFolder + '/' + name + ".png";
        if (writePicture(path, picture, device_.display.cxWidth))
            continue;
        reportUnwritable(path);
        failed_ = true;
    }
}

void Playback::writePinned()
{
    OutputFile file;
    if (file.open(options_.pin))
        file.write(pins_.pinned(script_));
    failed_ |= !file.close();
}

bool Playback::close()
{
    checks_.finish(frames_);
    if (filmFile_.isOpen())
        film_.finish();
    failed_ |= !trace_.close();
    failed_ |= !filmFile_.close();
    if (!options_.pin.empty())
        writePinned();
    return !failed_;
}

} // namespace replay
