#pragma once

#include <string>

namespace mygame::tests
{

struct Outcome {
    int exit = 0;
    std::string output; ///< Standard output.
    std::string errors; ///< Standard error.
};

/// Runs `replay` in the current folder. The arguments are as a shell reads them.
Outcome runReplay(const std::string &arguments);

} // namespace mygame::tests
