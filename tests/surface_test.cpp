#include <climits>

#include "tests/support/letters.h"

namespace mygame::tests
{
namespace
{

TEST(Surface, IsBlackWhenCreatedAndEmptyAfterAnImpossibleSize)
{
    Surface surface = surfaceOf("ab/");
    surface.setColourKey(kMagenta);
    EXPECT_TRUE(surface.create(3, 2));
    EXPECT_EQ(lettersOf(surface), "___/___/");
    EXPECT_FALSE(surface.keyEnabled());
    for (const std::int32_t width : {-1, INT_MIN, 65536, INT_MAX}) {
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
    first.release();
    third.create(1, 1);
    EXPECT_EQ(first.pixels(), nullptr);
    EXPECT_EQ(lettersOf(second) + lettersOf(third), "ax/_/");
    EXPECT_EQ(second.colourKey(), 'a');
    const Surface &itself = second;
    second = itself;
    third = second;
    second = Surface();
    EXPECT_EQ(lettersOf(third), "ax/");
    EXPECT_EQ(third.shareCount(), 1u);
}

} // namespace
} // namespace mygame::tests
