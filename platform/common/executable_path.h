#pragma once

#include <string>

namespace platform::common
{

/// The full path of the program that runs, in UTF-8 (on Linux in the bytes that it has), however long,
/// folders separated by '/'; empty when the system does not tell.
std::string executablePath();

/// The folder that it lies in, with a '/' at its end.
inline std::string executableFolder()
{
    const std::string path = executablePath();
    return path.substr(0, path.rfind('/') + 1);
}

} // namespace platform::common
