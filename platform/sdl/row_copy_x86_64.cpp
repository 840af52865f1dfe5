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

/// Pixels before the next place that blocks can be streamed to.
std::size_t pixelsToBlock(const std::byte *target)
{
    const auto beyond = reinterpret_cast<std::uintptr_t>(target) % sizeof(__m128i) / kPixelBytes;
    return (kBlockPixels - beyond) % kBlockPixels;
}

} // namespace

// Past the caches: a window's memory is larger than they are, and would be read into them first.
void copyRow(const std::uint32_t *row, std::size_t width, std::byte *target)
{
    const std::size_t first = std::min(width, pixelsToBlock(target));
    std::memcpy(target, row, first * kPixelBytes);
    std::size_t done = first;
    for (; done + kBlockPixels <= width; done += kBlockPixels) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(row + done));
        _mm_stream_si128(reinterpret_cast<__m128i *>(target + done * kPixelBytes), block);
    }
    std::memcpy(target + done * kPixelBytes, row + done, (width - done) * kPixelBytes);
}

} // namespace platform
