#include <csetjmp>

#include <png.h>

#include "platform/common/picture.h"
#include "platform/image_files.h"

namespace platform::common
{
namespace
{

[[noreturn]] void failSilently(png_structp png, png_const_charp) { png_longjmp(png, 1); }
void ignoreWarning(png_structp, png_const_charp) {}

/// Makes the library deliver 8 bits each of blue, green, red and something else, whatever the file holds.
void convertToBgrx(png_structp png)
{
    constexpr png_uint_32 kFiller = 0xFF;
    png_set_expand(png);
    png_set_strip_16(png);
    png_set_gray_to_rgb(png);
    png_set_bgr(png);
    png_set_filler(png, kFiller, PNG_FILLER_AFTER);
}

/// Errors of the library jump back into this function, so nothing in it or below may need destruction.
bool readPng(png_structp png, png_infop info, std::FILE *file, Picture &picture)
{
    if (setjmp(png_jmpbuf(png))) // NOLINT(cert-err52-cpp): the library knows no other way
        return false;
    png_set_user_limits(png, kMaxPictureSide, kMaxPictureSide);
    png_init_io(png, file);
    png_read_info(png, info);
    convertToBgrx(png);
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    if (!picture.allocate(png_get_image_width(png, info), png_get_image_height(png, info)) ||
        png_get_rowbytes(png, info) != picture.rowBytes())
        return false;
    for (int pass = 0; pass < passes; ++pass) {
        for (std::int32_t y = 0; y < picture.height; ++y)
            png_read_row(png, picture.row(y), nullptr);
    }
    // What follows the last row, the end marker included, harms no pixel.
    return true;
}

} // namespace

bool decodePng(std::FILE *file, Picture &picture)
{
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, failSilently, ignoreWarning);
    if (!png)
        return false;
    png_infop info = png_create_info_struct(png);
    const bool read = info && readPng(png, info, file, picture);
    png_destroy_read_struct(&png, &info, nullptr);
    return read;
}

} // namespace platform::common
