#pragma once

#include <string>

namespace program
{

/// The lines with which a recording begins: which program made it, where, and when.
std::string recordingComments();

} // namespace program
