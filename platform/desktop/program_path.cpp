#include "platform/program_path.h"

#include "platform/common/host_path.h"
#include "platform/common/program_path.h"
#include "platform/desktop/program_folder.h"

namespace platform
{

std::uint32_t GetModuleFileNameW(void *, char16_t *buffer, std::uint32_t size)
{
    return common::copyPath(common::toDevicePath(programPath()), buffer, size);
}

} // namespace platform
