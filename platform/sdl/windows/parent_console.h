#pragma once

namespace platform
{

/// Lets what the program writes appear in the console from which it was started, if it was: as a program with
/// windows it has none itself. What was sent elsewhere goes there.
void writeToParentConsole();

} // namespace platform
