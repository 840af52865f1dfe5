#include "platform/sdl/pixel_conversion.h"

#include <algorithm>
#include <cstring>

#include "platform/common/pixel.h"
#include "platform/sdl/screen_layout.h"

namespace platform
{
namespace
{

void convert(const std::uint16_t *row, int width, std::uint32_t *target)
{
    for (int x = 0; x < width; ++x)
        target[x] = common::toXrgb8888(row[x]);
}

/// With a constant scale the compiler unrolls the inner loop and uses wide registers.
template <int kScale> void repeat(const std::uint32_t *row, int width, std::uint32_t *target)
{
    for (int x = 0; x < width; ++x) {
        for (int i = 0; i < kScale; ++i)
            *target++ = row[x];
    }
}

void repeat(const std::uint32_t *row, int width, int scale, std::uint32_t *target)
{
    switch (scale) {
    case 2:
        return repeat<2>(row, width, target);
    case 3:
        return repeat<3>(row, width, target);
    case 4:
        return repeat<4>(row, width, target);
    default:
        for (int x = 0; x < width; ++x)
            target = std::fill_n(target, scale, row[x]);
    }
}

} // namespace

void convertRow(const std::uint16_t *row, int width, int scale, std::byte *target, std::ptrdiff_t pitch)
{
    if (scale == 1) {
        convert(row, width, reinterpret_cast<std::uint32_t *>(target));
        return;
    }
    std::uint32_t converted[kScreenSize.width];
    convert(row, width, converted);
    repeat(converted, width, scale, reinterpret_cast<std::uint32_t *>(target));
    const std::size_t bytes =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(scale) * sizeof *converted;
    for (int i = 1; i < scale; ++i)
        std::memcpy(target + i * pitch, target, bytes);
}

} // namespace platform
