#include "platform/desktop/screen_layout.h"

#include <gtest/gtest.h>

namespace platform
{
namespace
{

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
