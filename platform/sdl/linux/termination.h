/// The signals by which a terminal or the system asks the program to end.
#pragma once

namespace platform
{

/// From now on SIGINT and SIGTERM no longer kill the program, nor are they ignored.
void catchTerminationSignals();

/// @return true once after such signals.
bool takeTerminationRequest();

} // namespace platform
