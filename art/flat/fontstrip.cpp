// Makes the two font strips from the drawn letters.
//
// fontstrip FONT.TXT FONT_BIG.TXT OUTPUT-DIRECTORY

#include <algorithm>
#include <string>
#include <vector>

#include "art/flat/glyphs.h"

using namespace art;

namespace
{

const std::string kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
const std::string kSmallSet = " " + kLetters + "1234567890!?\"'#$%&()[]{}_.,;:<>/*-+\\@|";
const std::string kBigSet = " " + kLetters;

const Paint kKey{rgb(0xFF00FF), 1};
const Paint kMarker{rgb(0xFFFFFF), 1};
const Paint kSeparator{rgb(0x000000), 1};
const Colour kOutline = rgb(0x060A14);

/// Columns and rows that a glyph's box leaves around the ink, and how ink is coloured. The small font has no
/// room for an outline on the left: that is the right one of the glyph before.
struct Style {
    int left, right, top, rows, space;
    Colour (*shade)(float y, float light);
};

Colour shadeSmall(float y, float) { return mix(rgb(0xFFFFFF), rgb(0xD6E8F8), (y - 3) / 4); }

Colour shadeBig(float y, float light)
{
    Colour c =
        y < 7 ? mix(rgb(0xFFFFFF), rgb(0xE4F4FF), y / 7) : mix(rgb(0xC4E6FA), rgb(0x86C8F0), (y - 7) / 6);
    return mix(rgb(0x2C5C94), c, std::min(1.0f, 0.62f + light * 0.65f));
}

Drawing drawGlyph(const Letter &letter, const Style &style)
{
    Drawing box(letter.width + style.left + style.right, style.rows, kKey);
    for (int y = 0; y < box.height; ++y)
        for (int x = 0; x < box.width; ++x) {
            const int lx = x - style.left, ly = y - style.top;
            float near = 0;
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx)
                    if (letter.contains(lx + dx, ly + dy))
                        near = std::max(near, letter.at(lx + dx, ly + dy).ink);
            if (near < 0.25f)
                continue;
            const Dot dot = letter.contains(lx, ly) ? letter.at(lx, ly) : Dot{};
            box.at(x, y) = {mix(kOutline, style.shade(float(ly), dot.light), dot.ink), 1};
        }
    return box;
}

/// The boxes side by side under a marker row, one column between them.
Drawing makeStrip(const std::string &set, const Alphabet &alphabet, const Style &style)
{
    std::vector<Drawing> boxes;
    int width = int(set.size()) - 1;
    for (char c : set) {
        boxes.push_back(c == ' ' ? Drawing(style.space, style.rows, kKey)
                                 : drawGlyph(letterOf(alphabet, c), style));
        width += boxes.back().width;
    }
    Drawing strip(width, style.rows + 1, kKey);
    int left = 0;
    for (const Drawing &box : boxes) {
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
    writeDrawing(out + "/font.png", makeStrip(kSmallSet, readDots(argv[1]), {0, 1, 1, 10, 3, shadeSmall}));
    writeDrawing(out + "/font_big.png", makeStrip(kBigSet, readStrokes(argv[2]), {1, 1, 2, 19, 5, shadeBig}));
}
