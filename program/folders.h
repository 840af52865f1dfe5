#pragma once

#include <string>

namespace program
{

/// Where the pictures and the sound lie, with a '/' at its end.
std::string dataFolder();

/// Whether there is any picture in the data folder.
bool hasPictures();

/// Goes where what the program writes belongs: beside it where that is an unpacked archive that can be
/// written to, and otherwise into the user's folder. Where it cannot, it stays.
void enterStateFolder();

} // namespace program
