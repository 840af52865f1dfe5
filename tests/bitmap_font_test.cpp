#include "graphics/bitmap_font.h"
#include "tests/support/device_test.h"
#include "tests/support/letters.h"
#include "tests/support/picture_files.h"

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
    EXPECT_TRUE(font.load(DeviceTest::written("strip.png", pngOfLetters(letters)), characters));
    return font;
}

std::string glyphsOf(const BitmapFont &font, const std::u16string &characters)
{
    std::string glyphs;
    for (const char16_t character : characters)
        glyphs += (font.glyph(character) ? lettersOf(*font.glyph(character)) : "none") + ' ';
    return glyphs;
}

std::string drawnText(const BitmapFont &font, const std::u16string &text, std::int32_t x, TextAlign align)
{
    Surface target = surfaceOf("............/");
    target.drawText(font, text, x, 0, align);
    return lettersOf(target);
}

TEST_F(BitmapFontTest, CutsAGlyphForEachCharacterAtTheMarksInRow0)
{
    EXPECT_EQ(glyphsOf(fontOf(kStrip, u"ABC"), u"ABC?"), "aaa/ bbbbb/ cccc/ none ");
    EXPECT_EQ(glyphsOf(fontOf("M.M/MMM/ab./", u"AB"), u"AB"), "M/a/ M/./ ") << "only row 0 counts";
    EXPECT_EQ(glyphsOf(fontOf("__._/abxc/", u"AB"), u"AB"), "ab/ c/ ") << "black marks end with the picture";
    EXPECT_EQ(glyphsOf(fontOf(kStrip, u"A"), u"AB"), "aaa/ none ");
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
    } kCases[] = {{u"AB", 1, 2, ".aaa.bbbbb../"},  {u"A~\nB", 1, 2, ".aaa.bbbbb../"},
                  {u"AB", 12, 3, "...aaa.bbbbb/"}, {u"AB", 6, 1, "..aaa.bbbbb./"}, // 9 / 2 is 4
                  {u"A~B", 6, 1, ".aaa.bbbbb../"}, {u"A", 6, 0, "......aaa.../"},
                  {u"DA", 1, 2, "..aaa......./"},  {u"CAB", -6, 2, "aa.bbbbb..../"},
                  {u"ABC", 8, 2, "........aaa./"}, {u"", 6, 1, "............/"}};
    for (const auto &[text, x, align, drawn] : kCases)
        EXPECT_EQ(drawnText(font, text, x, static_cast<TextAlign>(align)), drawn);
}

TEST_F(BitmapFontTest, SharesGlyphsAndKeyWithCopies)
{
    BitmapFont font = fontOf("MM.MM/a.xbb/", u"AB");
    BitmapFont copy(font);
    EXPECT_FALSE(copy.glyph(u'A')->keyEnabled());
    font.setColourKey('.');
    EXPECT_TRUE(copy.glyph(u'A')->keyEnabled());
    EXPECT_FALSE(font.load(u"\\device\\missing.png", u"A"));
    EXPECT_EQ(glyphsOf(font, u"AB"), "none none ");
    const BitmapFont &itself = copy;
    copy = itself;
    font = copy;
    copy = BitmapFont();
    EXPECT_EQ(glyphsOf(font, u"AB"), "a./ bb/ ");
}

} // namespace
} // namespace mygame::tests
