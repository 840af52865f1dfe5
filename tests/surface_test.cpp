#include <climits>

#include "tests/support/letters.h"

namespace mygame::tests
{
namespace
{

TEST(PackColour, DropsLowBitsAndWhatIsAboveEight)
{
    EXPECT_EQ(packColour(255, 0, 255), 0xF81F);
    EXPECT_EQ(packColour(200, 100, 50), 0xCB26);
    EXPECT_EQ(packColour(7, 3, 7), 0);
    EXPECT_EQ(packColour(0x1FF, 0x100, -256), 0xF800);
}

TEST(Surface, IsBlackAndWithoutKeyWhenCreated)
{
    Surface surface = surfaceOf("ab/");
    surface.setColourKey(kMagenta);
    EXPECT_TRUE(surface.create(3, 2));
    EXPECT_EQ(lettersOf(surface), "___/___/");
    EXPECT_FALSE(surface.keyEnabled());
    EXPECT_TRUE(surface.create(0, 0));
    EXPECT_NE(surface.pixels(), nullptr);
    EXPECT_EQ(surface.shareCount(), 1u);
    surface = surfaceOf("ab/cd/");
    for (const std::int32_t outside : {-1, 2, INT_MIN, INT_MAX})
        EXPECT_EQ(surface.pixelAt(outside, 0) | surface.pixelAt(0, outside), 0) << outside;
}

TEST(Surface, IsEmptyAfterAnImpossibleSize)
{
    for (const std::int32_t width : {-1, INT_MIN, 65536, INT_MAX}) {
        Surface surface = surfaceOf("ab/");
        EXPECT_FALSE(surface.create(width, 65536)) << width;
        EXPECT_EQ(surface.pixels(), nullptr);
        EXPECT_EQ(surface.width() | surface.height() | surface.pixelCount(), 0);
    }
}

TEST(Surface, SharesItsPixelsUntilTheLastCopyLeaves)
{
    Surface first = surfaceOf("ab/");
    first.setColourKey('a');
    Surface second = first, third = second;
    first.pixels()[1] = 'x';
    EXPECT_EQ(second.shareCount(), 3u);
    first.release();
    third.create(1, 1);
    EXPECT_EQ(first.pixels(), nullptr);
    EXPECT_EQ(lettersOf(second) + lettersOf(third), "ax/_/");
    EXPECT_EQ(second.colourKey(), 'a');
    EXPECT_EQ(second.shareCount(), 1u);
    const Surface &itself = second;
    second = itself;
    third = second;
    second = Surface();
    EXPECT_EQ(lettersOf(third), "ax/");
    EXPECT_EQ(third.shareCount(), 1u);
    EXPECT_EQ(second.shareCount(), 0u);
}

} // namespace
} // namespace mygame::tests
