#include "platform/sdl/windows/machine_time.h"

#include <windows.h>

namespace platform
{

std::uint64_t machineTimeMs() { return GetTickCount64(); }

} // namespace platform
