/// From the handheld's 16-bit pixels to the desktop's 32-bit ones.
#pragma once

#include <cstddef>
#include <cstdint>

namespace platform
{

/// Converts a row of at most `kScreenSize.width` pixels to `scale` rows in which each pixel is a square of
/// `scale` * `scale` pixels. Rows of the target begin `pitch` bytes apart.
void convertRow(const std::uint16_t *row, int width, int scale, std::byte *target, std::ptrdiff_t pitch);

} // namespace platform
