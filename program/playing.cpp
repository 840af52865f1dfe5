#include "program/playing.h"

#include <cstdio>
#include <cstdlib>

#include "platform/common/data_folder.h"
#include "platform/sdl/sdl_device.h"
#include "program/folders.h"
#include "program/recording_comments.h"
#include "replay/recording_device.h"
#include "replay/recording_file.h"
#include "shell/startup.h"

namespace program
{
namespace
{

/// Beside the log.
constexpr char kRecordingsFolder[] = "recordings";
constexpr std::size_t kRecordings = 20;

/// From its start to its end. A recording in which no game was begun is not worth keeping.
void runProgram(replay::RecordingDevice &recording)
{
    {
        mygame::Program program;
        if (!program.begin(nullptr, platform::SW_SHOW))
            return;
        while (program.runPass()) {
            if (program.isInGame())
                recording.keep();
        }
        program.end();
    }
    recording.finish();
}

} // namespace

int play(std::string &dropped)
{
    const std::string data = platform::common::dataFolder();
    if (!platform::common::hasPictures(data))
        std::fprintf(stderr, "mygame: no pictures in \"%s\"; nothing will be drawn\n", data.c_str());
    enterStateFolder();
    platform::SdlDevice device;
    replay::RecordingFile file(kRecordingsFolder, kRecordings);
    replay::RecordingDevice recording(device, file, recordingComments());
    platform::useDevice(recording);
    runProgram(recording);
    if (!device.windowError().empty())
        std::fprintf(stderr, "mygame: cannot open a window: %s\n", device.windowError().c_str());
    dropped = device.droppedFile();
    return EXIT_SUCCESS;
}

} // namespace program
