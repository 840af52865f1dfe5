#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace replay
{

/// Writes 16-bit pixels, row by row, as an 8-bit RGB PNG whose low bits repeat the high ones.
/// @return false when the file cannot be written.
bool writePicture(const std::string &path, std::span<const std::uint16_t> pixels, std::uint32_t width);

} // namespace replay
