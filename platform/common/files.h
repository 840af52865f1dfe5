/// Files of the host, by paths in UTF-8. The standard library's own would do, but bring with them all that it
/// knows of languages, which is as much again as the program.
#pragma once

#include <string>

namespace platform::common
{

/// Whether there is a file that can be read; a folder is none.
bool isRegularFile(const std::string &path);

/// Whether any file in a folder has a name that `isWanted`. The folder may end in '/'.
bool anyFileName(const std::string &folder, bool (*isWanted)(const std::string &name));

} // namespace platform::common
