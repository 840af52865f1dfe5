#include "replay/picture_file.h"

#include <vector>

#include <png.h>

namespace replay
{
namespace
{

std::uint8_t widen5(unsigned value) { return static_cast<std::uint8_t>(value << 3 | value >> 2); }
std::uint8_t widen6(unsigned value) { return static_cast<std::uint8_t>(value << 2 | value >> 4); }

} // namespace

bool writePicture(const std::string &path, std::span<const std::uint16_t> pixels, std::uint32_t width)
{
    std::vector<std::uint8_t> rgb;
    rgb.reserve(pixels.size() * 3);
    for (const std::uint16_t pixel : pixels) {
        rgb.push_back(widen5(pixel >> 11u));
        rgb.push_back(widen6(pixel >> 5u & 0x3Fu));
        rgb.push_back(widen5(pixel & 0x1Fu));
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = static_cast<std::uint32_t>(pixels.size() / width);
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, path.c_str(), 0, rgb.data(), 0, nullptr) != 0;
}

} // namespace replay
