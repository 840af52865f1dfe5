#include <algorithm>
#include <cstring>
#include <emmintrin.h>

#include "platform/sdl/row_copy.h"

namespace platform
{
namespace
{

constexpr std::size_t kPixelBytes = sizeof(std::uint32_t);
constexpr std::size_t kBlockPixels = sizeof(__m128i) / kPixelBytes;
/// Of a cache line. One that is streamed in part costs more than one that is not.
constexpr std::size_t kLinePixels = 64 / kPixelBytes;

/// Pixels before the next cache line.
std::size_t pixelsToLine(const std::byte *target)
{
    const auto beyond = reinterpret_cast<std::uintptr_t>(target) / kPixelBytes % kLinePixels;
    return (kLinePixels - beyond) % kLinePixels;
}

void streamLine(const std::uint32_t *line, std::byte *target)
{
    for (std::size_t i = 0; i < kLinePixels; i += kBlockPixels) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(line + i));
        _mm_stream_si128(reinterpret_cast<__m128i *>(target + i * kPixelBytes), block);
    }
}

} // namespace

// Past the caches: a window's memory is larger than they are, and would be read into them first.
void copyRow(const std::uint32_t *row, std::size_t width, std::byte *target)
{
    std::size_t done = std::min(width, pixelsToLine(target));
    std::memcpy(target, row, done * kPixelBytes);
    for (; done + kLinePixels <= width; done += kLinePixels)
        streamLine(row + done, target + done * kPixelBytes);
    std::memcpy(target + done * kPixelBytes, row + done, (width - done) * kPixelBytes);
}

} // namespace platform
