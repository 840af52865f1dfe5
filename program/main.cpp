/// `mygame`: the program in a window.
#include <algorithm>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/common/device_path.h"
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

constexpr std::string_view kHelp = "usage: mygame\n"
                                   "Defend the Earth against falling asteroids.\n"
                                   "\n"
                                   "  --help     show this\n"
                                   "  --version  show the version\n"
                                   "\n"
                                   "Tap or click to fire. F11 or Alt+Enter is full screen and back, Escape\n"
                                   "twice leaves.\n";

/// Whether any of the program's pictures lies in a folder.
bool hasPictures(const std::filesystem::path &folder)
{
    std::error_code error;
    const auto isPicture = [](const std::filesystem::directory_entry &entry) {
        const std::filesystem::path name = entry.path().filename();
        return (name.extension() == ".png" || name.extension() == ".jpg") &&
               !name.string().starts_with("icon");
    };
    const std::filesystem::directory_iterator entries(folder, error);
    return std::any_of(begin(entries), end(entries), isPicture);
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
    const std::filesystem::path program = platform::common::toHostPath(device.programPath());
    if (!hasPictures(program.parent_path()))
        std::cerr << "mygame: no pictures in " << program.parent_path() << "; nothing will be drawn\n";
    runProgram(recording);
    if (!device.windowError().empty())
        std::cerr << "mygame: cannot open a window: " << device.windowError() << '\n';
    return 0;
}

} // namespace

int main(int argumentCount, char **arguments)
{
    if (argumentCount == 1)
        return play();
    const std::string_view argument = arguments[1];
    if (argumentCount > 2 || (argument != "--help" && argument != "--version")) {
        std::cerr << "mygame: unknown argument '" << arguments[argumentCount > 2 ? 2 : 1]
                  << "'; see mygame --help\n";
        return kExitBadUse;
    }
    if (argument == "--help")
        std::cout << kHelp;
    else
        std::cout << "mygame " MYGAME_VERSION "\n";
    return 0;
}
