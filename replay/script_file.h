#pragma once

#include <string>

#include "replay/script.h"

namespace replay
{

/// Reads a script from a file. @return what is wrong, with the file's name and the line, empty when nothing is.
std::string loadScript(const std::string &path, Script &script);

} // namespace replay
