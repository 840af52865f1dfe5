#pragma once

#include <string>

namespace platform::common
{

/// The full path of the program that runs, in UTF-8 (on Linux in the bytes that it has), however long,
/// folders separated by '/'; empty when the system does not tell.
std::string executablePath();

} // namespace platform::common
