/// `mygame`: the program in a window.
#include <cstdio>
#include <string>
#include <string_view>
#include <unistd.h>

#include "platform/common/executable_path.h"
#include "platform/common/files.h"
#include "platform/sdl/host.h"
#include "platform/sdl/sdl_device.h"
#include "shell/startup.h"

namespace
{

constexpr int kExitBadUse = 2;

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

int play()
{
    platform::SdlDevice device;
    platform::useDevice(device);
    const std::string program = platform::common::executablePath();
    const std::string folder = program.substr(0, program.rfind('/') + 1);
    const bool hasPictures = platform::common::anyFileName(folder, isPicture);
    if (!hasPictures)
        std::fprintf(stderr, "mygame: no pictures in \"%s\"; nothing will be drawn\n", folder.c_str());
    enterStateFolder(folder, hasPictures, device);
    const int exitCode = mygame::startUp(nullptr, nullptr, u"", platform::SW_SHOW);
    if (!device.windowError().empty())
        std::fprintf(stderr, "mygame: cannot open a window: %s\n", device.windowError().c_str());
    return exitCode;
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
