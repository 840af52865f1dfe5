#include "platform/program_path.h"

#include "platform/common/program_path.h"
#include "platform/virtual/virtual_device.h"

namespace platform
{

std::uint32_t GetModuleFileNameW(void *, char16_t *buffer, std::uint32_t size)
{
    return common::copyPath(VirtualDevice::instance().executable, buffer, size);
}

} // namespace platform
