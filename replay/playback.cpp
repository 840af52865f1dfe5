#include "replay/playback.h"

#include <filesystem>
#include <iostream>
#include <span>

#include "platform/common/file_path.h"
#include "replay/picture_file.h"
#include "replay/trace.h"

namespace replay
{
namespace
{

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
    : device_(device), options_(options), script_(script),
      run_(device, script, [&options](auto line, auto frame) {
          std::cerr << options.script << ':' << line
                    << ": the pictures are not those recorded, here or before: frame " << frame << '\n';
      })
{
}

Playback::~Playback() { device_.onPoll = nullptr; }

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
    if (!options_.trace.empty() || !options_.pin.empty())
        run_.wantChecksums();
    run_.prepare();
}

void Playback::watch(mygame::Program &program)
{
    run_.onFrame = [this, &program](const ShownFrame &frame) { followFrame(program, frame); };
    if (!options_.pin.empty())
        device_.onPoll = [this] { pins_.poll(static_cast<std::uint32_t>(device_.elapsedMs())); };
}

void Playback::followFrame(mygame::Program &program, const ShownFrame &frame)
{
    writeSnapshots(frame.picture);
    if (!options_.pin.empty())
        pins_.show(frame.runningChecksum);
    if (filmFile_.isOpen())
        film_.show(device_.elapsedMs(), frame.picture);
    if (trace_.isOpen()) {
        const char *screen = program.currentScreenName();
        trace_.write(traceLine(
            {frame.number, device_.tick(), screen, frame.checksum, device_.sounds, program.state()}));
    }
    device_.sounds.clear();
}

void Playback::writeSnapshots(std::span<const std::uint16_t> picture)
{
    for (const std::string &name : run_.takeSnapshots()) {
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
    checksMet_ = run_.finish();
    if (filmFile_.isOpen())
        film_.finish();
    failed_ |= !trace_.close();
    failed_ |= !filmFile_.close();
    if (!options_.pin.empty())
        writePinned();
    return !failed_;
}

} // namespace replay
