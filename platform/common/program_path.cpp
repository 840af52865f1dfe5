#include "platform/common/program_path.h"

namespace platform::common
{

std::uint32_t copyPath(std::u16string_view path, char16_t *buffer, std::uint32_t size)
{
    if (size == 0)
        return 0;
    const bool fits = path.size() < size;
    const std::size_t copied = path.copy(buffer, size - 1);
    buffer[copied] = u'\0';
    return fits ? static_cast<std::uint32_t>(copied) : size;
}

} // namespace platform::common
