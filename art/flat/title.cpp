// Draws the game's name as three layers for relief: thick letters of the big font, in steel, with a shadow
// behind and the sky darkened around them.
//
// title FONT_BIG.TXT NAME WIDTH HEIGHT TOP SCALE HEIGHT.PNG COLOUR.PNG GLOW.PNG
//
// WIDTH, HEIGHT and TOP, where the capitals begin, are in pixels of the screen, SCALE is the layers' pixels
// for one of those. The name is centred and as large as the width allows.

#include <algorithm>
#include <cstdlib>
#include <string>

#include "art/flat/glyphs.h"

using namespace art;

namespace
{

constexpr int kGap = 3;         // between letters, in units of the font
constexpr int kSpace = 5;       // between words, beside the gaps, in units of the font
constexpr int kCapHeight = 13;  // in units of the font
constexpr int kSideMargin = 18; // left free at the screen's edges, in its pixels
constexpr int kLargest = 24;    // the layers' pixels for one unit of the font, at most

/// Width of a name in units of the font.
int unitsOf(const std::string &name, const Alphabet &alphabet)
{
    int units = -kGap;
    for (const char c : name)
        units += (c == ' ' ? kSpace : letterOf(alphabet, c).width) + kGap;
    return units;
}

/// Where there is ink, on a layer that is empty yet; `letters` have `unit` pixels for a unit of the font.
Field inkOf(const std::string &name, const Alphabet &letters, int unit, Field layer, int left, int top)
{
    for (const char c : name) {
        if (c == ' ') {
            left += (kSpace + kGap) * unit;
            continue;
        }
        const Letter &letter = letterOf(letters, c);
        for (int y = 0; y < letter.height; ++y)
            for (int x = 0; x < letter.width; ++x)
                if (layer.contains(left + x, top + y))
                    layer.at(left + x, top + y) = letter.at(x, y).ink;
        left += letter.width + kGap * unit;
    }
    return layer;
}

Colour steel(float down)
{
    return down < 0.5f ? mix(rgb(0xFFFFFF), rgb(0xCAD8E8), down * 2)
                       : mix(rgb(0xAEC2DC), rgb(0x7C94B8), down * 2 - 1);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 10)
        fail("usage: title FONT_BIG.TXT NAME WIDTH HEIGHT TOP SCALE HEIGHT.PNG COLOUR.PNG GLOW.PNG");
    const std::string name = argv[2];
    const int scale = std::max(1, std::atoi(argv[6]));
    const int width = std::atoi(argv[3]) * scale, height = std::atoi(argv[4]) * scale;
    const int units = unitsOf(name, readStrokes(argv[1]));
    const int unit = std::clamp((width - 2 * kSideMargin * scale) / std::max(1, units), 1, kLargest);
    const int top = std::atoi(argv[5]) * scale;

    const Field thin =
        inkOf(name, readStrokes(argv[1], unit), unit, Field(width, height), (width - units * unit) / 2, top);
    // Softened ink tells how near the edge of a stroke is; where to cut it says how thick the letters are.
    const Field soft = blurred(thin, unit / 4), wide = blurred(thin, unit / 2),
                shade = blurred(thin, scale * 5 / 4), far = blurred(thin, scale * 4);
    Drawing heights(width, height), colours(width, height), glow(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const float down = float(y - top) / float(kCapHeight * unit);
            const float ink = smooth(0.10f, 0.22f, soft.at(x, y));
            const float rim = smooth(0.015f, 0.05f, wide.at(x, y));
            const int sx = std::max(0, x - 2 * scale), sy = std::max(0, y - 2 * scale);
            const float shadow = 0.75f * smooth(0.0f, 0.5f, shade.at(sx, sy));
            const float halo = 0.72f * smooth(0.0f, 0.10f, far.at(x, y));
            const float level = 0.55f * smooth(0.05f, 0.75f, soft.at(x, y));
            heights.at(x, y) = {{level, level, level}, 1};
            colours.at(x, y) = {mix(rgb(0x04070E), steel(down), ink), std::max({ink, rim, shadow, halo})};
        }
    writeDrawing(argv[7], heights, Alpha::Keep);
    writeDrawing(argv[8], colours, Alpha::Keep);
    writeDrawing(argv[9], glow, Alpha::Keep);
}
