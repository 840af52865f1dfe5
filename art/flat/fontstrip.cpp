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
    bool thickens; // whether small letters get a paler dot to the right of their strokes
};

Colour shadeSmall(float y, float) { return mix(rgb(0xFFFFFF), rgb(0xC4D6E8), (y - 2) / 5); }

/// Steel, as that of the menu's rows: pale above, darker below, the warm sun on the upper left of every
/// stroke.
Colour shadeBig(float y, float light)
{
    const Colour face =
        y < 7 ? mix(rgb(0xFFFFFF), rgb(0xE6F1FF), y / 7) : mix(rgb(0xD8E8FB), rgb(0xA8C4E6), (y - 7) / 6);
    const Colour lit = mix(face, rgb(0xFFFAF0), std::max(0.0f, light - 0.35f) * 0.8f);
    return mix(rgb(0x3E5680), lit, std::min(1.0f, 0.78f + light * 0.6f));
}

/// How much ink a dot holds; the dot behind a thin stroke holds a part, where the letter has room for it.
float inkAt(const Letter &letter, int x, int y, bool thick)
{
    constexpr float kPale = 0.60f;
    const auto inked = [&](int dx) { return letter.contains(x + dx, y) && letter.at(x + dx, y).ink > 0.5f; };
    const float own = letter.contains(x, y) ? letter.at(x, y).ink : 0;
    return thick && inked(-1) && !inked(0) && !inked(1) ? kPale : own;
}

Drawing drawGlyph(const Letter &letter, const Style &style, bool thick)
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
            const float light = letter.contains(lx, ly) ? letter.at(lx, ly).light : 1;
            box.at(x, y) = {mix(kOutline, style.shade(float(ly), light), inkAt(letter, lx, ly, thick)), 1};
        }
    return box;
}

/// The boxes side by side under a marker row, one column between them.
Drawing makeStrip(const std::string &set, const Alphabet &alphabet, const Style &style)
{
    std::vector<Drawing> boxes;
    int width = int(set.size()) - 1;
    for (char c : set) {
        boxes.push_back(
            c == ' ' ? Drawing(style.space, style.rows, kKey)
                     : drawGlyph(letterOf(alphabet, c), style, style.thickens && c >= 'a' && c <= 'z'));
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
    writeDrawing(out + "/font.png",
                 makeStrip(kSmallSet, readDots(argv[1]), {0, 1, 1, 10, 3, shadeSmall, true}));
    writeDrawing(out + "/font_big.png",
                 makeStrip(kBigSet, readStrokes(argv[2]), {1, 1, 2, 19, 5, shadeBig, false}));
}
