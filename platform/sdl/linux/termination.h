/// The signals by which a terminal or the system asks the program to end.
#pragma once

namespace platform
{

/// From now on SIGINT, SIGTERM and SIGHUP no longer kill the program, nor are they ignored.
void catchTerminationSignals();

/// @return true once after such signals.
bool takeTerminationRequest();

} // namespace platform
