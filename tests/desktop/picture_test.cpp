#include <vector>

#include <gtest/gtest.h>

#include "platform/desktop/pixel_conversion.h"
#include "platform/desktop/screen_layout.h"

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

TEST(ScreenLayout, IsTheLargestWholeMultipleInTheMiddle)
{
    EXPECT_EQ(layOut({719, 2000}), (ScreenLayout{2, 119, 680}));
    EXPECT_EQ(layOut({1920, 1080}), (ScreenLayout{3, 600, 60}));
    EXPECT_EQ(layOut({200, 300}), (ScreenLayout{1, -20, -10}));
}

TEST(ScreenLayout, FindsTheLastPixelInAWindowOfAnySize)
{
    for (int width = 1; width < 1300; width += 7) {
        for (int height = 1; height < 1700; height += 11) {
            const WindowSize window{{width, height}, {width, height}};
            const auto [scale, left, top] = layOut(window.pixels);
            const int right = left + kScreenSize.width * scale, bottom = top + kScreenSize.height * scale;
            ASSERT_EQ(toScreen(window, {left - 1, bottom - 1}), (Point{-1, 319})) << width << " x " << height;
            ASSERT_EQ(toScreen(window, {right, top}), (Point{240, 0})) << width << " x " << height;
        }
    }
}

TEST(ScreenLayout, CountsPhysicalPixelsOnADenseDisplay)
{
    // 480 x 640 points of 1.5 pixels: the screen is shown at 3 times its size.
    const WindowSize window{{480, 640}, {720, 960}};
    EXPECT_EQ(toScreen(window, {1, 1}), (Point{0, 0}));
    EXPECT_EQ(toScreen(window, {2, 3}), (Point{1, 1}));
    EXPECT_EQ(toScreen(window, {-1, 640}), (Point{-1, 320}));
}

} // namespace
} // namespace platform
