#include <gtest/gtest.h>

#include "platform/desktop/screen_layout.h"

namespace platform
{
namespace
{

TEST(ScreenLayout, IsTheLargestWholeMultipleInTheMiddle)
{
    EXPECT_EQ(layOut({720, 960}), (ScreenLayout{3, 0, 0}));
    EXPECT_EQ(layOut({719, 2000}), (ScreenLayout{2, 119, 680}));
    EXPECT_EQ(layOut({1920, 1080}), (ScreenLayout{3, 600, 60}));
    EXPECT_EQ(layOut({200, 300}), (ScreenLayout{1, -20, -10}));
}

/// The four corners of a screen pixel's square, and what lies just outside of it.
void expectSquare(const WindowSize &window, int x, int y)
{
    const ScreenLayout layout = layOut(window.pixels);
    const int left = layout.left + x * layout.scale;
    const int top = layout.top + y * layout.scale;
    const int right = left + layout.scale - 1;
    const int bottom = top + layout.scale - 1;
    EXPECT_EQ(toScreen(window, {left, top}), (Point{x, y}));
    EXPECT_EQ(toScreen(window, {right, bottom}), (Point{x, y}));
    EXPECT_EQ(toScreen(window, {left - 1, bottom + 1}), (Point{x - 1, y + 1}));
}

TEST(ScreenLayout, FindsEveryCornerPixelInAWindowOfAnySize)
{
    for (int width = 1; width < 1300; width += 7) {
        for (int height = 1; height < 1700; height += 11) {
            const WindowSize window{{width, height}, {width, height}};
            expectSquare(window, 0, 0);
            expectSquare(window, kScreenSize.width - 1, kScreenSize.height - 1);
            if (HasFailure())
                FAIL() << "in a window of " << width << " x " << height;
        }
    }
}

TEST(ScreenLayout, CountsPhysicalPixelsOnADenseDisplay)
{
    // 480 x 640 points of 1.5 pixels: the screen is shown at 3 times its size.
    const WindowSize window{{480, 640}, {720, 960}};
    EXPECT_EQ(toScreen(window, {0, 0}), (Point{0, 0}));
    EXPECT_EQ(toScreen(window, {1, 1}), (Point{0, 0}));
    EXPECT_EQ(toScreen(window, {2, 3}), (Point{1, 1}));
    EXPECT_EQ(toScreen(window, {479, 639}), (Point{239, 319}));
    EXPECT_EQ(toScreen(window, {-1, 640}), (Point{-1, 320}));
}

} // namespace
} // namespace platform
