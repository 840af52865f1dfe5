#pragma once

#include <cstdint>

namespace platform::common
{

/// The colour of a 16-bit pixel of the handheld (5 bits of red, 6 of green, 5 of blue) as 0xFFRRGGBB: the
/// high bits of each part are repeated in its low ones, so that full intensity becomes 255.
constexpr std::uint32_t toXrgb8888(std::uint16_t pixel)
{
    const std::uint32_t p = pixel;
    const std::uint32_t red = (p & 0xF800) << 8 | (p & 0xE000) << 3;
    const std::uint32_t green = (p & 0x07E0) << 5 | (p & 0x0600) >> 1;
    const std::uint32_t blue = (p & 0x001F) << 3 | (p & 0x001C) >> 2;
    return 0xFF000000 | red | green | blue;
}

} // namespace platform::common
