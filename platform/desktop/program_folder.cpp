#include "platform/desktop/program_folder.h"

#include <unistd.h>

namespace platform
{

std::string programPath()
{
    std::string path;
    ssize_t length = 0;
    do {
        path.resize(path.size() + 4096);
        length = readlink("/proc/self/exe", path.data(), path.size());
    } while (length == static_cast<ssize_t>(path.size()));
    path.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    return path;
}

std::string programFolder()
{
    const std::string path = programPath();
    return path.substr(0, path.rfind('/') + 1);
}

} // namespace platform
