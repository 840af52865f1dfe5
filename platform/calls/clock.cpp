#include "platform/clock.h"

#include "platform/device.h"

namespace platform
{

Tick GetTickCount() { return device().tick(); }

void Sleep(std::uint32_t milliseconds) { device().sleep(milliseconds); }

} // namespace platform
