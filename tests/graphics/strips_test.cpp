/// Sprites and fonts, and how they are cut from the strips in picture files.
#include <climits>

#include "graphics/animated_sprite.h"
#include "graphics/bitmap_font.h"
#include "tests/support/device_test.h"
#include "tests/support/letters.h"

namespace mygame::tests
{
namespace
{

using AnimatedSpriteTest = DeviceTest;

/// What is cut from a picture file of these letters.
template <class Strip> Strip cutFrom(std::string_view letters, auto argument)
{
    Strip strip;
    EXPECT_TRUE(strip.load(DeviceTest::drawn("strip.png", letters), argument));
    return strip;
}

constexpr auto spriteOf = cutFrom<AnimatedSprite, std::int32_t>;
constexpr auto fontOf = cutFrom<BitmapFont, std::u16string>;

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
    Surface target = surfaceOf("./");
    copy.draw(target, 0, 0);
    EXPECT_EQ(lettersOf(target), "./") << "not started";
    copy.start(0, 1);
    copy.update(10);
    copy = master;
    EXPECT_EQ(copy.currentFrame(), 0);
    copy.setColourKey('a');
    EXPECT_TRUE(master.frame(0).keyEnabled());
    EXPECT_FALSE(master.load(u"\\device\\missing.png", 10));
    EXPECT_EQ(framesOf(master), "");
    const AnimatedSprite &itself = copy;
    copy = itself;
    EXPECT_EQ(framesOf(copy), "a/ b/ c/ ");
}

/// Glyphs 3, 5 and 4 pixels wide and 1 tall, marked by M, with junk between them.
constexpr const char *kStrip = "MMM.MMMMM..MMMM/"
                               "aaaxbbbbbxxcccc/";

using BitmapFontTest = DeviceTest;

std::string glyphsOf(const BitmapFont &font, const std::u16string &characters)
{
    std::string glyphs;
    for (const char16_t character : characters)
        glyphs += (font.glyph(character) ? lettersOf(*font.glyph(character)) : "none") + ' ';
    return glyphs;
}

TEST_F(BitmapFontTest, CutsAGlyphForEachCharacterAtTheMarksInRow0)
{
    EXPECT_EQ(glyphsOf(fontOf(kStrip, u"ABC"), u"ABC?"), "aaa/ bbbbb/ cccc/ none ");
    EXPECT_EQ(glyphsOf(fontOf("__._/abxc/", u"AB"), u"AB"), "ab/ c/ ") << "black marks end with the picture";
    EXPECT_EQ(glyphsOf(fontOf(kStrip, u"ABA"), u"AB"), "cccc/ bbbbb/ ") << "the later glyph counts";
    EXPECT_EQ(glyphsOf(fontOf(kStrip, u"ABCDE"), u"CDE"), "cccc/ / / ") << "beyond the last: width 0";
}

TEST_F(BitmapFontTest, MeasuresAlignsAndClips)
{
    const BitmapFont font = fontOf(kStrip, u"ABCD");
    EXPECT_EQ(font.textWidth(u"A~B"), 10) << "a missing glyph counts with its spacing alone";
    EXPECT_EQ(font.textWidth(u""), -1);
    const struct {
        const char16_t *text;
        std::int32_t x;
        int align;
        const char *drawn;
    } kCases[] = {{u"A~\nB", 1, 2, ".aaa.bbbbb../"}, {u"AB", 6, 1, "..aaa.bbbbb./"}, // 9 / 2 is 4
                  {u"AB", 12, 3, "...aaa.bbbbb/"},   {u"A~B", 6, 1, ".aaa.bbbbb../"},
                  {u"DA", 1, 2, "..aaa......./"},    {u"A", 6, 0, "......aaa.../"},
                  {u"CAB", -6, 2, "aa.bbbbb..../"},  {u"", 6, 1, "............/"}};
    for (const auto &[text, x, align, drawn] : kCases) {
        Surface target = surfaceOf("............/");
        target.drawText(font, text, x, 0, static_cast<TextAlign>(align));
        EXPECT_EQ(lettersOf(target), drawn);
    }
}

} // namespace
} // namespace mygame::tests
