// Makes the two font strips from the drawn letters.
//
// fontstrip FONT.TXT FONT_BIG.TXT OUTPUT-DIRECTORY

#include <algorithm>

#include "glyphs.h"

namespace
{

const std::string kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
const std::string kSmallSet = " " + kLetters + "1234567890!?\"'#$%&()[]{}_.,;:<>/*-+\\@|";
const std::string kBigSet = " " + kLetters;

const Colour kKey = hex("#FF00FF");
const Colour kMarker = hex("#FFFFFF");
const Colour kSeparator = hex("#000000");
const Colour kOutline = hex("#060A14");

/// Columns and rows that a glyph's box leaves around the ink, and how ink is coloured. The small font has no
/// room for an outline on the left: that is the right one of the glyph before.
struct Style {
    int left, right, top, rows, space;
    Colour (*shade)(float y, float light);
};

Colour shadeSmall(float y, float) { return mix(hex("#FFFFFF"), hex("#D6E8F8"), (y - 3) / 4); }

Colour shadeBig(float y, float light)
{
    Colour c =
        y < 7 ? mix(hex("#FFFFFF"), hex("#E4F4FF"), y / 7) : mix(hex("#C4E6FA"), hex("#86C8F0"), (y - 7) / 6);
    return mix(hex("#2C5C94"), c, std::min(1.0f, 0.62f + light * 0.65f));
}

Image drawGlyph(const Letter &letter, const Style &style)
{
    Image box(letter.width + style.left + style.right, style.rows, kKey);
    for (int y = 0; y < box.height; ++y)
        for (int x = 0; x < box.width; ++x) {
            const int lx = x - style.left, ly = y - style.top;
            float near = 0;
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx)
                    near = std::max(near, letter.inkAt(lx + dx, ly + dy));
            if (near < 0.25f)
                continue;
            const float ink = letter.inkAt(lx, ly);
            const float light = ink > 0 ? letter.light[std::size_t(ly) * letter.width + lx] : 0;
            box.at(x, y) = mix(kOutline, style.shade(float(ly), light), ink);
        }
    return box;
}

/// The boxes side by side under a marker row, one column between them.
Image makeStrip(const std::string &set, const Alphabet &alphabet, const Style &style)
{
    std::vector<Image> boxes;
    int width = int(set.size()) - 1;
    for (char c : set) {
        if (c != ' ' && alphabet.find(c) == alphabet.end())
            fail(std::string("no letter drawn for ") + c);
        boxes.push_back(c == ' ' ? Image(style.space, style.rows, kKey) : drawGlyph(alphabet.at(c), style));
        width += boxes.back().width;
    }
    Image strip(width, style.rows + 1, kKey);
    int left = 0;
    for (const Image &box : boxes) {
        for (int x = 0; x < box.width; ++x) {
            strip.at(left + x, 0) = kMarker;
            for (int y = 0; y < box.height; ++y)
                strip.at(left + x, y + 1) = box.at(x, y);
        }
        left += box.width + 1;
        if (left <= width)
            strip.at(left - 1, 0) = kSeparator;
    }
    return strip;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4)
        fail("usage: fontstrip FONT.TXT FONT_BIG.TXT OUTPUT-DIRECTORY");
    const std::string out = argv[3];
    const Image small = makeStrip(kSmallSet, readDots(argv[1]), {0, 1, 1, 10, 3, shadeSmall});
    writePng(small, out + "/font.png");
    const Image big = makeStrip(kBigSet, readStrokes(argv[2]), {1, 1, 2, 19, 5, shadeBig});
    writePng(big, out + "/font_big.png");
}
