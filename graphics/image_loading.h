#pragma once

#include <string>

namespace mygame
{

/// The full path of a data file: the executable's folder, ending in a backslash, followed by the name
/// unchanged. The folder is a single backslash when the executable's path has none after its first character.
std::u16string dataFilePath(const std::u16string &name);

} // namespace mygame
