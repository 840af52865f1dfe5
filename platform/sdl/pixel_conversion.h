/// From the handheld's 16-bit pixels to the desktop's 32-bit ones.
#pragma once

#include <cstddef>
#include <cstdint>

namespace platform
{

/// The colour as 0xFFRRGGBB, exactly: the upper bits of each part are repeated in the lower ones, so that
/// full intensity becomes 255.
constexpr std::uint32_t toXrgb8888(std::uint16_t pixel)
{
    const std::uint32_t p = pixel;
    const std::uint32_t red = (p & 0xF800) << 8 | (p & 0xE000) << 3;
    const std::uint32_t green = (p & 0x07E0) << 5 | (p & 0x0600) >> 1;
    const std::uint32_t blue = (p & 0x001F) << 3 | (p & 0x001C) >> 2;
    return 0xFF000000 | red | green | blue;
}

/// Converts a row of at most `kScreenSize.width` pixels to `scale` rows in which each pixel is a square of
/// `scale` * `scale` pixels. Rows of the target begin `pitch` bytes apart.
void convertRow(const std::uint16_t *row, int width, int scale, std::byte *target, std::ptrdiff_t pitch);

} // namespace platform
