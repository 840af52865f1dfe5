#include "image.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include <png.h>

namespace
{

std::uint8_t byteOf(float value) { return std::uint8_t(std::lround(std::clamp(value, 0.0f, 1.0f) * 255)); }

} // namespace

Colour mix(Colour from, Colour to, float share)
{
    share = std::clamp(share, 0.0f, 1.0f);
    const float rest = 1 - share;
    return {from.r * rest + to.r * share, from.g * rest + to.g * share, from.b * rest + to.b * share,
            from.a * rest + to.a * share};
}

Colour hex(const char *text)
{
    const unsigned long value = std::strtoul(text + 1, nullptr, 16);
    return {(value >> 16) / 255.0f, (value >> 8 & 255) / 255.0f, (value & 255) / 255.0f, 1};
}

void fail(const std::string &message)
{
    std::fprintf(stderr, "%s\n", message.c_str());
    std::exit(1);
}

Image readPng(const std::string &path)
{
    png_image file{};
    file.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&file, path.c_str()))
        fail(path + ": cannot be read: " + file.message);
    file.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(file));
    if (!png_image_finish_read(&file, nullptr, bytes.data(), 0, nullptr))
        fail(path + ": cannot be read: " + file.message);
    Image image(int(file.width), int(file.height));
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        const std::uint8_t *p = &bytes[i * 4];
        image.pixels[i] = {p[0] / 255.0f, p[1] / 255.0f, p[2] / 255.0f, p[3] / 255.0f};
    }
    return image;
}

void writePng(const Image &image, const std::string &path, Alpha alpha)
{
    png_image file{};
    file.version = PNG_IMAGE_VERSION;
    file.width = png_uint_32(image.width);
    file.height = png_uint_32(image.height);
    file.format = alpha == Alpha::Keep ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(image.pixels.size() * 4);
    for (const Colour &c : image.pixels) {
        bytes.insert(bytes.end(), {byteOf(c.r), byteOf(c.g), byteOf(c.b)});
        if (alpha == Alpha::Keep)
            bytes.push_back(byteOf(c.a));
    }
    if (!png_image_write_to_file(&file, path.c_str(), 0, bytes.data(), 0, nullptr))
        fail(path + ": cannot be written: " + file.message);
}
