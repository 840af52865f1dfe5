#include "program/folders.h"

#include <cstdio>
#include <string>
#include <unistd.h>

#include "platform/common/data_folder.h"
#include "platform/common/executable_path.h"
#include "platform/sdl/host.h"

namespace program
{
namespace
{

bool canWriteInto(const std::string &folder)
{
    std::FILE *log = std::fopen((folder + "log.txt").c_str(), "a");
    return log && std::fclose(log) == 0;
}

} // namespace

void enterStateFolder()
{
    const std::string beside = platform::common::executableFolder();
    const bool isUnpacked = platform::common::hasPictures(beside) && canWriteInto(beside);
    const std::string folder = isUnpacked ? beside : platform::makeHost()->stateFolder();
    static_cast<void>(chdir(folder.c_str()));
}

} // namespace program
