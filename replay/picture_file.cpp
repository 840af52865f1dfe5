#include "replay/picture_file.h"

#include <png.h>

#include "platform/common/pixel.h"

namespace replay
{

std::vector<std::uint8_t> toRgb(std::span<const std::uint16_t> pixels)
{
    std::vector<std::uint8_t> rgb(pixels.size() * 3);
    std::uint8_t *channel = rgb.data();
    for (const std::uint16_t pixel : pixels) {
        const std::uint32_t colour = platform::common::toXrgb8888(pixel);
        *channel++ = static_cast<std::uint8_t>(colour >> 16);
        *channel++ = static_cast<std::uint8_t>(colour >> 8);
        *channel++ = static_cast<std::uint8_t>(colour);
    }
    return rgb;
}

bool writePicture(const std::string &path, std::span<const std::uint16_t> pixels, std::uint32_t width)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = static_cast<std::uint32_t>(pixels.size() / width);
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, path.c_str(), 0, toRgb(pixels).data(), 0, nullptr) != 0;
}

} // namespace replay
