#include "platform/clock.h"

#include "platform/desktop/desktop_device.h"

namespace platform
{

std::uint32_t GetTickCount() { return DesktopDevice::instance().tick(); }

void Sleep(std::uint32_t milliseconds) { DesktopDevice::instance().sleep(milliseconds); }

} // namespace platform
