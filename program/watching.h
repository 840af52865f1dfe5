#pragma once

#include <string>

namespace program
{

/// Shows a recorded game in a window until whoever watches leaves. What is wrong with it, the title and
/// standard error say. `next` becomes a file that was dropped on the window, to
/// be watched instead, or empty. @return the exit status: 0, 2 where it cannot be read or has a fault, 4
/// where its pictures are not those recorded.
int watch(const std::string &file, std::string &next);

} // namespace program
