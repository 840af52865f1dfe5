#pragma once

#include <string>

namespace platform
{

/// The user's folder for what the program writes, made if absent, for nobody else to read. Where it cannot be
/// made, one in which nothing can.
std::string stateFolder();

} // namespace platform
