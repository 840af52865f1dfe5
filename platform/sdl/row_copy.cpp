#include "platform/sdl/row_copy.h"

#include <cstring>

namespace platform
{

void copyRow(const std::uint32_t *row, std::size_t width, std::byte *target)
{
    std::memcpy(target, row, width * sizeof *row);
}

} // namespace platform
