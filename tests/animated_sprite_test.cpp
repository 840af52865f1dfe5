#include "graphics/animated_sprite.h"

#include <climits>

#include "tests/support/device_test.h"
#include "tests/support/letters.h"

namespace mygame::tests
{
namespace
{

using AnimatedSpriteTest = DeviceTest;

AnimatedSprite spriteOf(const std::string &letters, std::int32_t frameTimeMs)
{
    AnimatedSprite sprite;
    EXPECT_TRUE(sprite.load(DeviceTest::drawn("strip.png", letters), frameTimeMs));
    return sprite;
}

std::string framesOf(const AnimatedSprite &sprite)
{
    std::string frames;
    for (std::int32_t i = 0; i < sprite.frameCount(); ++i)
        frames += lettersOf(sprite.frame(i)) + ' ';
    return frames;
}

/// The frames shown at some ticks, with a bar where the sprite has finished.
std::string playback(AnimatedSprite &sprite, std::initializer_list<std::uint32_t> ticks)
{
    std::string shown;
    for (const std::uint32_t tick : ticks) {
        sprite.update(tick);
        shown += sprite.isFinished() ? '|' : static_cast<char>('0' + sprite.currentFrame());
    }
    return shown;
}

TEST_F(AnimatedSpriteTest, CutsFramesAtTheMarksInColumn0)
{
    EXPECT_EQ(framesOf(spriteOf("Mab/Mcd/.xx/.xx/Mef/MMM/.xx/Mij/", 1)), "ab/cd/ ef/MM/ ij/ ");
    EXPECT_EQ(framesOf(spriteOf("M/./M/", 1)), "/ / ");
    EXPECT_EQ(framesOf(spriteOf("_a/_b/", 1)), "a/b/ ") << "black marks end with the picture, too";
}

TEST_F(AnimatedSpriteTest, FinishesOnlyWhenAWrapOfTheIndexIsSeen)
{
    AnimatedSprite sprite = spriteOf("M/./M/./M/", 100), single = spriteOf("M/", 10),
                   still = spriteOf("M/./M/", 0);
    sprite.start(1000, 2);
    EXPECT_EQ(playback(sprite, {1000, 1099, 1100, 1299, 1300, 1599, 1600, 1700}), "001202||");
    sprite.start(0, 1);
    EXPECT_EQ(playback(sprite, {200, 500, 800}), "222");
    single.start(0, 1);
    EXPECT_EQ(playback(single, {0, 10, 1000}), "000");
    still.start(0, 1);
    EXPECT_EQ(playback(still, {0, 100, 1000}), "000");
}

TEST_F(AnimatedSpriteTest, CountsTicksAcrossTheWrapAsSigned)
{
    AnimatedSprite sprite = spriteOf("M/./M/./M/", 100);
    sprite.start(UINT32_MAX - 49, 1);
    EXPECT_EQ(playback(sprite, {UINT32_MAX - 49, UINT32_MAX, 49, 50, 150, 250}), "00012|");
    sprite.start(1000, 2);
    EXPECT_EQ(playback(sprite, {1000, 900, 900}), "00|") << "a tick before the start ends a loop";
    sprite.start(0, AnimatedSprite::kLoopForEver);
    EXPECT_EQ(playback(sprite, {INT_MAX, INT_MAX + 1u, 100}), "201");
}

TEST_F(AnimatedSpriteTest, SharesFramesButNotTimingWithCopies)
{
    AnimatedSprite master = spriteOf("Ma/../Mb/../Mc/", 10);
    master.start(0, 1);
    master.update(20);
    AnimatedSprite copy(master);
    EXPECT_EQ(copy.currentFrame(), 0);
    EXPECT_TRUE(copy.isFinished());
    copy.setColourKey('a');
    EXPECT_TRUE(master.frame(0).keyEnabled());
    EXPECT_FALSE(master.load(u"\\device\\missing.png", 10));
    EXPECT_EQ(framesOf(master), "");
    const AnimatedSprite &itself = copy;
    copy = itself;
    master = copy;
    copy.release();
    EXPECT_EQ(framesOf(master), "a/ b/ c/ ");
    Surface target = surfaceOf("./");
    master.draw(target, 0, 0);
    EXPECT_EQ(lettersOf(target), "./") << "not started";
}

} // namespace
} // namespace mygame::tests
