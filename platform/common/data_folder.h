#pragma once

#include <string>

namespace platform::common
{

/// Where the pictures and the sound lie, with a '/' at its end: beside the program. Where there is no picture
/// beside it, but where an installation puts them, there.
std::string dataFolder();

/// Whether there is any picture in a folder.
bool hasPictures(const std::string &folder);

} // namespace platform::common
