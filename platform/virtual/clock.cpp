#include "platform/clock.h"

#include "platform/virtual/virtual_device.h"

namespace platform
{

std::uint32_t GetTickCount() { return VirtualDevice::instance().tick(); }

void Sleep(std::uint32_t milliseconds) { VirtualDevice::instance().advance(milliseconds); }

} // namespace platform
