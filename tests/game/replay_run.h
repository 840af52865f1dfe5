#pragma once

#include <cstdlib>
#include <string>
#include <sys/wait.h>

#include "tests/support/device_test.h"

namespace mygame::tests
{

struct Outcome {
    int exit = 0;
    std::string output, errors; ///< What it wrote to its standard streams.
};

/// Runs `replay` in the current folder. The arguments are as a shell reads them.
inline Outcome runReplay(const std::string &arguments)
{
    const int status = std::system((REPLAY_COMMAND " " + arguments + " >stdout 2>stderr").c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile("stdout"), readFile("stderr")};
}

} // namespace mygame::tests
