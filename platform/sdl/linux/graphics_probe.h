#pragma once

namespace platform
{

/// Looks for a graphics processor with a driver of its own; OpenGL emulated by the main processor does not
/// count. SDL's video must be running. Cheap where there is none.
bool hasGraphicsProcessor();

} // namespace platform
