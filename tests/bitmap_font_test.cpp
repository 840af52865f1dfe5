#include "graphics/bitmap_font.h"

#include "tests/support/device_test.h"
#include "tests/support/letters.h"

namespace mygame::tests
{
namespace
{

/// Glyphs 3, 5 and 4 pixels wide and 1 tall, marked by M, with junk between them.
constexpr const char *kStrip = "MMM.MMMMM..MMMM/"
                               "aaaxbbbbbxxcccc/";

using BitmapFontTest = DeviceTest;

BitmapFont fontOf(const char *letters, const std::u16string &characters)
{
    BitmapFont font;
    EXPECT_TRUE(font.load(DeviceTest::drawn("strip.png", letters), characters));
    return font;
}

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

TEST_F(BitmapFontTest, SharesGlyphsAndKeyWithCopies)
{
    BitmapFont font = fontOf("MM.MM/a.xbb/", u"AB");
    const BitmapFont copy(font);
    font.setColourKey('.');
    EXPECT_TRUE(copy.glyph(u'A')->keyEnabled());
    EXPECT_FALSE(font.load(u"\\device\\missing.png", u"A"));
    EXPECT_EQ(glyphsOf(font, u"AB"), "none none ");
    EXPECT_EQ(glyphsOf(copy, u"AB"), "a./ bb/ ");
}

} // namespace
} // namespace mygame::tests
