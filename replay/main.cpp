/// `replay`: runs the whole program on the virtual device, as a script says, and writes down what it shows.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "platform/virtual/virtual_device.h"
#include "shell/startup.h"
#include "replay/options.h"
#include "replay/recorder.h"
#include "replay/script.h"

namespace
{

constexpr int kExitBadUse = 2;
constexpr int kExitStandstill = 3;

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
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

void runProgram(replay::Recorder &recorder)
{
    mygame::Program program;
    recorder.watch(program);
    program.run(nullptr, platform::SW_SHOW);
}

} // namespace

int main(int argumentCount, char **arguments)
{
    auto options = replay::readOptions(argumentCount, arguments);
    replay::Script script;
    if (!options || !loadScript(options->script, script))
        return kExitBadUse;
    if (options->dataFolder.empty())
        options->dataFolder = executableFolder();
    platform::VirtualDevice device;
    platform::useDevice(device);
    device.dataFolder = options->dataFolder;
    replay::Recorder recorder(device, *options);
    if (!checkDataFolder(device.dataFolder) || !recorder.open())
        return kExitBadUse;
    device.onStandstill = [&] {
        std::cerr << options->script << ": the clock stands still at tick " << device.tick() << '\n';
        recorder.close();
        std::_Exit(kExitStandstill);
    };
    recorder.prepare(script);
    runProgram(recorder);
    return recorder.close() ? 0 : kExitBadUse;
}
