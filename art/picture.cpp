#include "art/picture.h"

#include <cstdio>
#include <cstdlib>

#include <png.h>

namespace art
{

namespace
{

template <std::size_t N> void write(const std::string &path, const Grid<Bytes<N>> &picture)
{
    png_image file{};
    file.version = PNG_IMAGE_VERSION;
    file.width = static_cast<png_uint_32>(picture.width);
    file.height = static_cast<png_uint_32>(picture.height);
    file.format = N == 1 ? PNG_FORMAT_GRAY : N == 3 ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
    if (!png_image_write_to_file(&file, path.c_str(), 0, picture.pixels.data(), 0, nullptr))
        fail(path + ": cannot be written: " + file.message);
}

} // namespace

void fail(const std::string &why)
{
    std::fprintf(stderr, "%s\n", why.c_str());
    std::exit(1);
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

void writePng(const std::string &path, const Grid<Bytes<1>> &picture) { write(path, picture); }
void writePng(const std::string &path, const Grid<Bytes<3>> &picture) { write(path, picture); }
void writePng(const std::string &path, const Grid<Bytes<4>> &picture) { write(path, picture); }

} // namespace art
