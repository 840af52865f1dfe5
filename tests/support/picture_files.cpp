#include "tests/support/picture_files.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>
#include <png.h>
#include <zlib.h>

#include "tests/support/letters.h"

namespace mygame::tests
{
namespace
{

std::string bigEndian(std::uint32_t value)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift);
    return bytes;
}

std::string chunk(const std::string &typeAndData)
{
    const auto *data = reinterpret_cast<const Bytef *>(typeAndData.data());
    const auto size = static_cast<std::uint32_t>(typeAndData.size());
    return bigEndian(size - 4) + typeAndData + bigEndian(static_cast<std::uint32_t>(crc32(0, data, size)));
}

std::string deflated(const std::string &data)
{
    uLongf size = compressBound(data.size());
    std::string result(size, '\0');
    compress(reinterpret_cast<Bytef *>(result.data()), &size, reinterpret_cast<const Bytef *>(data.data()),
             data.size());
    return result.substr(0, size);
}

/// Every stepX-th pixel of every stepY-th row from a first one on; rows begin with the number of their
/// filter, none.
std::string rows(int left, int top, int stepX, int stepY, int width, int height, const SamplesAt &samplesAt)
{
    std::string result;
    for (int y = top; y < height && left < width; y += stepY) {
        result += '\0';
        for (int x = left; x < width; x += stepX)
            result += samplesAt(x, y);
    }
    return result;
}

} // namespace

std::string png(const PngKind &kind, std::uint32_t width, std::uint32_t height, const SamplesAt &samplesAt)
{
    constexpr int kPasses[][4] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                  {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
    constexpr std::uint32_t kTooLong = 4097;
    const auto w = static_cast<int>(std::min(width, kTooLong)),
               h = static_cast<int>(std::min(height, kTooLong));
    std::string data = kind.interlaced ? "" : rows(0, 0, 1, 1, w, h, samplesAt);
    for (const auto &[left, top, stepX, stepY] : kPasses)
        data += kind.interlaced ? rows(left, top, stepX, stepY, w, h, samplesAt) : "";
    const std::string form{static_cast<char>(kind.bitDepth), static_cast<char>(kind.colourType), 0, 0,
                           static_cast<char>(kind.interlaced)};
    std::string file = "\x89PNG\r\n\x1A\n" + chunk("IHDR" + bigEndian(width) + bigEndian(height) + form);
    if (!kind.palette.empty())
        file += chunk("PLTE" + kind.palette) + chunk(std::string("tRNS\0\x80", 6));
    return file + chunk("IDAT" + deflated(data)) + chunk("IEND");
}

std::string jpeg(const JpegKind &kind, std::uint32_t width, std::uint32_t height, const SamplesAt &samplesAt)
{
    jpeg_compress_struct encoder{};
    jpeg_error_mgr errors{};
    encoder.err = jpeg_std_error(&errors);
    jpeg_create_compress(&encoder);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&encoder, &bytes, &size);
    encoder.image_width = width;
    encoder.image_height = height;
    encoder.input_components = kind.samples;
    encoder.in_color_space = static_cast<J_COLOR_SPACE>(kind.colourSpace);
    jpeg_set_defaults(&encoder);
    jpeg_set_colorspace(&encoder, static_cast<J_COLOR_SPACE>(kind.storedSpace));
    jpeg_set_quality(&encoder, 100, TRUE);
    if (kind.progressive)
        jpeg_simple_progression(&encoder);
    encoder.write_Adobe_marker = kind.adobeMarker ? TRUE : FALSE;
    jpeg_start_compress(&encoder, TRUE);
    for (int y = 0; y < static_cast<int>(height); ++y) {
        std::string row = rows(0, y, 1, static_cast<int>(height), static_cast<int>(width), y + 1, samplesAt);
        auto *samples = reinterpret_cast<unsigned char *>(row.data() + 1);
        jpeg_write_scanlines(&encoder, &samples, 1);
    }
    jpeg_finish_compress(&encoder);
    jpeg_destroy_compress(&encoder);
    std::string result(bytes, bytes + size);
    std::free(bytes);
    return result;
}

std::string pngOfLetters(std::string_view letters)
{
    const Surface surface = surfaceOf(letters);
    return png({PNG_COLOR_TYPE_RGB, 8, false, ""}, static_cast<std::uint32_t>(surface.width()),
               static_cast<std::uint32_t>(surface.height()), [&surface](int x, int y) {
                   const Pixel pixel = surface.pixelAt(x, y);
                   return std::string{static_cast<char>(pixel >> 11 << 3),
                                      static_cast<char>((pixel >> 5 & 63) << 2),
                                      static_cast<char>((pixel & 31) << 3)};
               });
}

} // namespace mygame::tests
