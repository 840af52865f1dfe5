/// `mygame`: the program in a window.
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string_view>
#include <system_error>

#include "platform/common/device_path.h"
#include "platform/sdl/sdl_device.h"
#include "shell/startup.h"

namespace
{

constexpr int kExitBadUse = 2;

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

int play()
{
    platform::SdlDevice device;
    platform::useDevice(device);
    const std::filesystem::path program = platform::common::toHostPath(device.programPath());
    if (!hasPictures(program.parent_path()))
        std::cerr << "mygame: no pictures in " << program.parent_path() << "; nothing will be drawn\n";
    const int exitCode = mygame::startUp(nullptr, nullptr, u"", platform::SW_SHOW);
    if (!device.windowError().empty())
        std::cerr << "mygame: cannot open a window: " << device.windowError() << '\n';
    return exitCode;
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
