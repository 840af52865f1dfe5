#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace replay
{

/// 16-bit pixels as 3 bytes each: red, green, blue, the low bits repeating the high ones.
std::vector<std::uint8_t> toRgb(std::span<const std::uint16_t> pixels);

/// Writes 16-bit pixels, row by row, as an 8-bit RGB PNG. @return false when the file cannot be written.
bool writePicture(const std::string &path, std::span<const std::uint16_t> pixels, std::uint32_t width);

} // namespace replay
