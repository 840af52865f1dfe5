/// `mygame`: the program in a window.
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>
#include <unistd.h>

#include "platform/common/executable_path.h"
#include "platform/common/files.h"
#include "platform/sdl/host.h"
#include "platform/sdl/sdl_device.h"
#include "replay/recording_device.h"
#include "replay/recording_file.h"
#include "shell/startup.h"

namespace
{

constexpr int kExitBadUse = 2;

/// Beside the log.
constexpr char kRecordingsFolder[] = "recordings";
constexpr std::size_t kRecordings = 20;

constexpr char kHelp[] = "usage: mygame\n"
                         "Defend the Earth against falling asteroids.\n"
                         "\n"
                         "  --help     show this\n"
                         "  --version  show the version\n"
                         "\n"
                         "Tap or click to fire. F11 or Alt+Enter is full screen and back, Escape\n"
                         "twice leaves.\n";

/// Whether a file is one of the program's pictures.
bool isPicture(const std::string &name)
{
    return (name.ends_with(".png") || name.ends_with(".jpg")) && !name.starts_with("icon");
}

bool canWriteInto(const std::string &folder)
{
    std::FILE *log = std::fopen((folder + "log.txt").c_str(), "a");
    return log && std::fclose(log) == 0;
}

/// Goes where what the program writes belongs: beside it where that is an unpacked archive, and otherwise
/// into the user's folder. Where it cannot, it stays.
void enterStateFolder(const std::string &folder, bool hasPictures, platform::SdlDevice &device)
{
    const bool isUnpacked = hasPictures && canWriteInto(folder);
    static_cast<void>(chdir(isUnpacked ? folder.c_str() : device.stateFolder().c_str()));
}

std::string recordingComments()
{
    const std::time_t now = std::time(nullptr);
    char date[32];
    std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", std::localtime(&now));
    return "# MyGame recording\n# MyGame " MYGAME_VERSION ", " MYGAME_HOST ", " + std::string(date) + '\n';
}

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

int play()
{
    platform::SdlDevice device;
    replay::RecordingFile file(kRecordingsFolder, kRecordings);
    replay::RecordingDevice recording(device, file, recordingComments());
    platform::useDevice(recording);
    const std::string program = platform::common::executablePath();
    const std::string folder = program.substr(0, program.rfind('/') + 1);
    const bool hasPictures = std::ranges::any_of(platform::common::fileNames(folder), isPicture);
    if (!hasPictures)
        std::fprintf(stderr, "mygame: no pictures in \"%s\"; nothing will be drawn\n", folder.c_str());
    enterStateFolder(folder, hasPictures, device);
    runProgram(recording);
    if (!device.windowError().empty())
        std::fprintf(stderr, "mygame: cannot open a window: %s\n", device.windowError().c_str());
    return 0;
}

} // namespace

int main(int argumentCount, char **arguments)
{
    if (argumentCount == 1)
        return play();
    platform::makeHost()->reachTerminal();
    const std::string_view argument = arguments[1];
    if (argumentCount > 2 || (argument != "--help" && argument != "--version")) {
        std::fprintf(stderr, "mygame: unknown argument '%s'; see mygame --help\n",
                     arguments[argumentCount > 2 ? 2 : 1]);
        return kExitBadUse;
    }
    std::fputs(argument == "--help" ? kHelp : "mygame " MYGAME_VERSION "\n", stdout);
    return 0;
}
