#include "program/folders.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

#include "platform/common/executable_path.h"
#include "platform/common/files.h"
#include "platform/sdl/host.h"

namespace program
{
namespace
{

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

} // namespace

std::string dataFolder() { return platform::common::executableFolder(); }

bool hasPictures() { return std::ranges::any_of(platform::common::fileNames(dataFolder()), isPicture); }

void enterStateFolder()
{
    const std::string beside = platform::common::executableFolder();
    const bool isUnpacked = hasPictures() && canWriteInto(beside);
    const std::string folder = isUnpacked ? beside : platform::makeHost()->stateFolder();
    static_cast<void>(chdir(folder.c_str()));
}

} // namespace program
