#pragma once

#include <string>

namespace platform::common
{

/// Makes a folder in one that is there. @return whether it is there now. Hosts without lasting files lack it.
bool makeFolder(const std::string &path);

} // namespace platform::common
