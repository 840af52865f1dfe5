#include "tests/game/replay_run.h"

#include <cstdlib>
#include <sys/wait.h>

#include "tests/support/files.h"

namespace mygame::tests
{

Outcome runReplay(const std::string &arguments)
{
    const int status = std::system((REPLAY_COMMAND " " + arguments + " >stdout 2>stderr").c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile("stdout"), readFile("stderr")};
}

} // namespace mygame::tests
