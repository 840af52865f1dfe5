#pragma once

#include <string>

#include "replay/script.h"

namespace replay
{

/// Reads a script from a file. @return what the program of that name has to say: SCRIPT:LINE: what is wrong,
/// or that the file cannot be read; empty when all is well.
std::string loadScript(const std::string &program, const std::string &path, Script &script);

} // namespace replay
