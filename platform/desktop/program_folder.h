#pragma once

#include <string>

namespace platform
{

/// The executable's path on the host, however long; empty when the system does not tell.
std::string programPath();

/// The folder it lies in, with a slash at the end.
std::string programFolder();

} // namespace platform
