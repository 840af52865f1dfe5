#pragma once

#include <cstdint>

namespace mygame
{

/// One pixel: red in bits 15 to 11, green in 10 to 5, blue in 4 to 0.
using Pixel = std::uint16_t;

/// Packs a colour by dropping low bits, without rounding. Only the low 8 bits of each argument count.
constexpr Pixel packColour(int red, int green, int blue)
{
    return static_cast<Pixel>((red & 0xF8) << 8 | (green & 0xFC) << 3 | (blue & 0xFF) >> 3);
}

constexpr Pixel kBlack = 0;
constexpr Pixel kWhite = packColour(255, 255, 255);
constexpr Pixel kRed = packColour(255, 0, 0);
constexpr Pixel kGreen = packColour(0, 255, 0);
constexpr Pixel kMagenta = packColour(255, 0, 255);

} // namespace mygame
