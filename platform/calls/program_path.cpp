#include "platform/program_path.h"

#include "platform/device.h"

namespace platform
{

std::uint32_t GetModuleFileNameW(void *, char16_t *buffer, std::uint32_t size)
{
    if (size == 0)
        return 0;
    const std::u16string path = device().programPath();
    const std::size_t copied = path.copy(buffer, size - 1);
    buffer[copied] = u'\0';
    return path.size() < size ? static_cast<std::uint32_t>(copied) : size;
}

} // namespace platform
