/// `replay`: runs the whole program on the virtual device, as a script says, and writes down what it shows.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "platform/common/data_folder.h"
#include "platform/common/file_path.h"
#include "platform/virtual/virtual_device.h"
#include "replay/options.h"
#include "replay/playback.h"
#include "replay/script.h"
#include "replay/script_file.h"
#include "shell/startup.h"

namespace
{

constexpr int kExitBadUse = 2;
constexpr int kExitStandstill = 3;
constexpr int kExitUnmetCheck = 4;

/// @return false, with a line on standard error, when the folder cannot be read.
bool checkDataFolder(const std::string &folder)
{
    std::error_code error;
    const std::filesystem::directory_iterator readable(platform::common::filePath(folder), error);
    if (error)
        std::cerr << "replay: cannot read the data folder '" << folder << "': " << error.message() << '\n';
    return !error;
}

void runProgram(replay::Playback &playback)
{
    mygame::Program program;
    playback.watch(program);
    program.run(nullptr, platform::SW_SHOW);
}

/// Plays a script. @return the exit status.
int play(const replay::Options &options, const replay::Script &script)
{
    platform::VirtualDevice device;
    platform::useDevice(device);
    device.dataFolder = options.dataFolder;
    replay::Playback playback(device, options, script);
    if (!checkDataFolder(device.dataFolder) || !playback.open())
        return kExitBadUse;
    device.onStandstill = [&] {
        std::cerr << options.script << ": the clock stands still at tick " << device.tick() << '\n';
        std::_Exit(playback.close() ? kExitStandstill : kExitBadUse);
    };
    playback.prepare();
    runProgram(playback);
    if (!playback.close())
        return kExitBadUse;
    return playback.checksMet() ? EXIT_SUCCESS : kExitUnmetCheck;
}

} // namespace

int main(int argumentCount, char **arguments)
{
    auto options = replay::readOptions(argumentCount, arguments);
    if (!options)
        return kExitBadUse;
    if (options->request != replay::Request::Run) {
        std::cout << (options->request == replay::Request::Help ? replay::helpText()
                                                                : "replay (MyGame) " MYGAME_VERSION "\n");
        return std::cout.flush() ? EXIT_SUCCESS : kExitBadUse;
    }
    replay::Script script;
    if (const std::string fault = replay::loadScript("replay", options->script, script); !fault.empty()) {
        std::cerr << fault << '\n';
        return kExitBadUse;
    }
    if (options->dataFolder.empty())
        options->dataFolder = platform::common::dataFolder();
    return play(*options, script);
}
