/// Picture files of every kind, made for a test.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace mygame::tests
{

/// The samples of the pixel at (x, y) as they stand in the file, most significant byte first.
using SamplesAt = std::function<std::string(int x, int y)>;

struct PngKind {
    int colourType; ///< PNG_COLOR_TYPE_...
    int bitDepth;   ///< 8 or 16
    bool interlaced = false;
    std::string palette; ///< Red, green, blue of every index.
};

/// Of a size that no reader accepts only a beginning is written.
std::string png(const PngKind &kind, std::uint32_t width, std::uint32_t height, const SamplesAt &samplesAt);

struct JpegKind {
    int samples;     ///< In a pixel.
    int colourSpace; ///< JCS_... of the samples
    int storedSpace; ///< JCS_... in the file
    bool progressive = false;
    bool adobeMarker = false;
};

/// Of the best quality.
std::string jpeg(const JpegKind &kind, std::uint32_t width, std::uint32_t height, const SamplesAt &samplesAt);

/// A PNG whose pixels load as the letters (see letters.h).
std::string pngOfLetters(std::string_view letters);

} // namespace mygame::tests
