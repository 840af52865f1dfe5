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

struct ReplayTest : DeviceTest {
    /// Runs a script, with these further arguments.
    Outcome play(const std::string &script, const std::string &arguments = "")
    {
        writeFile("script", script);
        return run = runReplay("script --data \"" DATA_FOLDER "\" " + arguments);
    }

    /// Runs a script with a trace, and returns the trace.
    std::string traceOf(const std::string &script)
    {
        play(script, "--trace trace --snapshots pictures");
        return readFile("trace");
    }

    Outcome run; ///< The last one.
};

} // namespace mygame::tests
