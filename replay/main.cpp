/// `replay`: runs the whole program on the virtual device, as a script says, and writes down what it shows.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "platform/common/executable_path.h"
#include "platform/virtual/virtual_device.h"
#include "replay/options.h"
#include "replay/playback.h"
#include "replay/script.h"
#include "shell/startup.h"

namespace
{

constexpr int kExitBadUse = 2;
constexpr int kExitStandstill = 3;
constexpr int kExitUnmetCheck = 4;

/// @return false when the file cannot be read to its end, as a folder never can.
bool readFile(const std::string &path, std::string &text)
{
    std::ifstream file(path, std::ios::binary);
    char chunk[4096];
    while (file.read(chunk, sizeof chunk), file.gcount() > 0)
        text.append(chunk, static_cast<std::size_t>(file.gcount()));
    return file.eof();
}

/// @return false, with a line on standard error, when the script cannot be read or has a fault.
bool loadScript(const std::string &path, replay::Script &script)
{
    std::string text;
    if (!readFile(path, text)) {
        std::cerr << "replay: cannot read the script '" << path << "'\n";
        return false;
    }
    const auto fault = replay::parseScript(text, script);
    if (fault)
        std::cerr << path << ':' << fault->line << ": " << fault->what << '\n';
    return !fault;
}

/// @return false, with a line on standard error, when the folder cannot be read.
bool checkDataFolder(const std::string &folder)
{
    std::error_code error;
    const std::filesystem::directory_iterator readable(folder, error);
    if (error)
        std::cerr << "replay: cannot read the data folder '" << folder << "': " << error.message() << '\n';
    return !error;
}

std::string executableFolder()
{
    return std::filesystem::path(platform::common::executablePath()).parent_path().string();
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
    if (!loadScript(options->script, script))
        return kExitBadUse;
    if (options->dataFolder.empty())
        options->dataFolder = executableFolder();
    return play(*options, script);
}
