/// Picture files of the host, decoded. Shared by all devices, so that they show the same pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace platform::common
{

/// Pixels of 4 bytes, blue, green, red and one without a meaning, row by row from the top without gaps.
struct Picture {
    static constexpr std::size_t kPixelBytes = 4;

    std::int32_t width = 0;
    std::int32_t height = 0;
    std::unique_ptr<std::uint8_t[]> pixels;

    /// Makes room for width * height pixels. @return false for a side of 0 or over `kMaxPictureSide`, or
    /// without memory.
    bool allocate(std::uint32_t newWidth, std::uint32_t newHeight);

    std::size_t rowBytes() const { return static_cast<std::size_t>(width) * kPixelBytes; }
    std::uint8_t *row(std::int32_t y) { return pixels.get() + static_cast<std::size_t>(y) * rowBytes(); }
};

/// Decodes a PNG or JPEG file, told apart by its first bytes. @return false when it is missing, no regular
/// file, of another kind, damaged or cut short, or too large.
bool decodePicture(const std::string &hostPath, Picture &picture);

/// The two formats, from the beginning of an open file.
bool decodePng(std::FILE *file, Picture &picture);
bool decodeJpeg(std::FILE *file, Picture &picture);

} // namespace platform::common
