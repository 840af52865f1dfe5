#include "platform/common/files.h"

#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace platform::common
{
namespace
{

struct Close {
    void operator()(DIR *folder) const { closedir(folder); }
};

} // namespace

bool isRegularFile(const std::string &path)
{
    struct stat status {
    };
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::vector<std::string> fileNames(const std::string &folder)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, Close> entries(opendir(folder.c_str()));
    while (const dirent *entry = entries ? readdir(entries.get()) : nullptr)
        names.emplace_back(entry->d_name);
    return names;
}

} // namespace platform::common
