#pragma once

#include <string>

namespace program
{

/// The game in its window, from start to end, recorded. `dropped` becomes the file that was dropped on the
/// window, which ends the game, or empty. @return the exit status.
int play(std::string &dropped);

} // namespace program
