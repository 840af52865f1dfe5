#include "art/picture.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <png.h>

namespace art
{

namespace
{

/// One line of a blur: `count` values that lie `step` apart.
void blurLine(const float *from, float *to, int count, int step, int radius, Sides ends)
{
    double sum = 0;
    const auto value = [&](int i) {
        const int place = ends == Sides::MeetAround ? (i + count) % count : std::clamp(i, 0, count - 1);
        return from[static_cast<std::size_t>(place) * step];
    };
    for (int i = -radius; i <= radius; ++i)
        sum += value(i);
    for (int i = 0; i < count; ++i) {
        to[static_cast<std::size_t>(i) * step] = static_cast<float>(sum / (2 * radius + 1));
        sum += value(i + radius + 1) - value(i - radius);
    }
}

} // namespace

void fail(const std::string &why)
{
    std::fprintf(stderr, "%s\n", why.c_str());
    std::exit(1);
}

Field blurred(Field field, int radius, Sides sides)
{
    Field rows(field.width, field.height);
    for (int pass = 0; pass < 2; ++pass) {
        for (int y = 0; y < field.height; ++y)
            blurLine(&field.at(0, y), &rows.at(0, y), field.width, 1, radius, sides);
        for (int x = 0; x < field.width; ++x)
            blurLine(&rows.at(x, 0), &field.at(x, 0), field.height, field.width, radius, Sides::GoOn);
    }
    return field;
}

Grid<Bytes<4>> readPng(const std::string &path)
{
    png_image file{};
    file.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&file, path.c_str()))
        fail(path + ": cannot be read: " + file.message);
    file.format = PNG_FORMAT_RGBA;
    Grid<Bytes<4>> picture(static_cast<int>(file.width), static_cast<int>(file.height));
    if (!png_image_finish_read(&file, nullptr, picture.pixels.data(), 0, nullptr))
        fail(path + ": cannot be read: " + file.message);
    return picture;
}

void writePng(const std::string &path, int width, int height, std::size_t channels, const void *bytes)
{
    png_image file{};
    file.version = PNG_IMAGE_VERSION;
    file.width = static_cast<png_uint_32>(width);
    file.height = static_cast<png_uint_32>(height);
    file.format = channels == 1 ? PNG_FORMAT_GRAY : channels == 3 ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
    if (!png_image_write_to_file(&file, path.c_str(), 0, bytes, 0, nullptr))
        fail(path + ": cannot be written: " + file.message);
}

} // namespace art
