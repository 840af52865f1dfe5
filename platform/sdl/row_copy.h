#pragma once

#include <cstddef>
#include <cstdint>

namespace platform
{

/// Copies pixels to a place that nobody here reads again, as a window's memory is.
void copyRow(const std::uint32_t *row, std::size_t width, std::byte *target);

} // namespace platform
