/// Files of the host, by paths in UTF-8. The standard library's own would do, but bring with them all that it
/// knows of languages, which is as much again as the program.
#pragma once

#include <string>
#include <vector>

namespace platform::common
{

/// Whether there is a file that can be read; a folder is none.
bool isRegularFile(const std::string &path);

/// The names of all that lies in a folder, in no order; none where it cannot be read. The folder may end in
/// '/'.
std::vector<std::string> fileNames(const std::string &folder);

} // namespace platform::common
