#include "platform/desktop/termination.h"

#include <csignal>

namespace platform
{
namespace
{

volatile std::sig_atomic_t terminationRequested = 0;

void noteSignal(int) { terminationRequested = 1; }

} // namespace

void catchTerminationSignals()
{
    struct sigaction action {
    };
    action.sa_handler = noteSignal;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool takeTerminationRequest()
{
    if (terminationRequested == 0)
        return false;
    terminationRequested = 0;
    return true;
}

} // namespace platform
