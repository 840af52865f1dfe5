#include <vector>

#include <gtest/gtest.h>

#include "platform/desktop/pixel_conversion.h"

namespace platform
{
namespace
{

TEST(Pixels, AreConvertedExactly)
{
    for (unsigned pixel = 0; pixel <= 0xFFFF; ++pixel) {
        const unsigned red = pixel >> 11, green = pixel >> 5 & 63, blue = pixel & 31;
        const unsigned rgb =
            (red * 8 + red / 4) << 16 | (green * 4 + green / 16) << 8 | (blue * 8 + blue / 4);
        ASSERT_EQ(toXrgb8888(static_cast<std::uint16_t>(pixel)), 0xFF000000 | rgb) << "pixel " << pixel;
    }
}

TEST(Pixels, BecomeSquaresAndNothingElseIsWritten)
{
    constexpr std::uint32_t kUntouched = 0x12345678;
    constexpr int kWidth = 5;
    const std::uint16_t row[kWidth] = {0xFFFF, 0x07E0, 0x0000, 0xF800, 0x001F};
    for (int scale = 1; scale <= 7; ++scale) {
        const int pitch = kWidth * scale + 1;
        std::vector<std::uint32_t> target(static_cast<std::size_t>(pitch * (scale + 1)), kUntouched);
        convertRow(row, kWidth, scale, reinterpret_cast<std::byte *>(target.data()),
                   pitch * static_cast<int>(sizeof target[0]));
        for (int i = 0; i < static_cast<int>(target.size()); ++i) {
            const int x = i % pitch / scale;
            const bool inside = x < kWidth && i / pitch < scale;
            EXPECT_EQ(target[static_cast<std::size_t>(i)], inside ? toXrgb8888(row[x]) : kUntouched)
                << "element " << i << " at scale " << scale;
        }
    }
}

} // namespace
} // namespace platform
