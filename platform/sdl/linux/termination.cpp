#include "platform/sdl/linux/termination.h"

#include <atomic>
#include <csignal>

namespace platform
{
namespace
{

/// Set on any thread, and in the middle of anything.
std::atomic<bool> terminationRequested = false;
static_assert(std::atomic<bool>::is_always_lock_free);

void noteSignal(int) { terminationRequested = true; }

} // namespace

void catchTerminationSignals()
{
    struct sigaction action {
    };
    action.sa_handler = noteSignal;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGHUP, &action, nullptr);
}

bool takeTerminationRequest() { return terminationRequested.exchange(false); }

} // namespace platform
