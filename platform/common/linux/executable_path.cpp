#include "platform/common/executable_path.h"

#include <filesystem>
#include <system_error>

namespace platform::common
{

std::string executablePath()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

} // namespace platform::common
