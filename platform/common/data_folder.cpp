#include "platform/common/data_folder.h"

#include <algorithm>
#include <vector>

#include "platform/common/executable_path.h"
#include "platform/common/files.h"

namespace platform::common
{
namespace
{

/// Seen from the program's folder, so that an installation can be moved.
constexpr char kInstalledData[] = MYGAME_INSTALLED_DATA "/";

/// The window's icon alone shows nothing of the game.
bool isPicture(const std::string &name)
{
    return (name.ends_with(".png") || name.ends_with(".jpg")) && !name.starts_with("icon");
}

} // namespace

std::string dataFolder()
{
    const std::string beside = executableFolder(), installed = beside + kInstalledData;
    return !hasPictures(beside) && hasPictures(installed) ? installed : beside;
}

bool hasPictures(const std::string &folder)
{
    const std::vector<std::string> names = fileNames(folder);
    return std::any_of(names.begin(), names.end(), isPicture);
}

} // namespace platform::common
