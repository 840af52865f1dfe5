// Makes the two font strips from the drawn letters, and refuses to write a strip
// whose glyphs could not be cut apart again or whose texts would not fit.
//
// fontstrip FONT.TXT FONT_BIG.TXT OUTPUT-DIRECTORY

#include <algorithm>
#include <cstdio>

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

bool same(Colour a, Colour b) { return a.r == b.r && a.g == b.g && a.b == b.b; }

/// Widths of the glyphs as the game will cut them from the strip's first row.
std::vector<int> cutWidths(const Image &strip)
{
    std::vector<int> widths;
    bool inside = false;
    for (int x = 0; x < strip.width; ++x) {
        const bool marked = same(strip.at(x, 0), strip.at(0, 0));
        if (marked && !inside)
            widths.push_back(0);
        if (marked)
            ++widths.back();
        inside = marked;
    }
    return widths;
}

struct Fit {
    const char *text;
    int room;
};

constexpr Fit kSmallFits[] = {
    {"Your scientists will improve your", 186},
    {"missiles' propulsion system", 186},
    {"All the damages will be repaired.", 186},
    {"You can detonate nuke and get", 186},
    {"rid of all enemies and their", 186},
    {"you can fire more files at the", 186},
    {"One more missile slot means", 186},
    {"Missile propulsion system", 186},
    {"Repair structural damages", 186},
    {"EARTH HAS BEEN DESTROYED", 236},
    {"RETURN TO MAIN MENU", 236},
    {"You survived for 86400 seconds", 236},
    {"Asteroids destroyed: 1000", 236},
    {"Click here to continue", 236},
    {"$1000000", 80},
    {"description", 100},
};

constexpr Fit kBigFits[] = {
    {"Time attack", 116}, {"Main menu", 116}, {"New game", 116}, {"Sound off", 116},
    {"Campaign", 116},    {"Survival", 116},  {"Medium", 116},   {"Resume", 116},
};

template <std::size_t N>
void check(const char *name, const Image &strip, const std::string &set, const Fit (&fits)[N])
{
    const std::vector<int> widths = cutWidths(strip);
    if (widths.size() != set.size())
        fail(std::string(name) + ": " + std::to_string(widths.size()) + " glyphs instead of " +
             std::to_string(set.size()));
    std::printf("%s: %zu glyphs, %d pixels tall\n", name, widths.size(), strip.height - 1);
    const auto widthOf = [&](char c) { return widths[set.find(c)]; };
    for (char c : std::string("234567890"))
        if (set.find(c) != std::string::npos && widthOf(c) != widthOf('1'))
            fail(std::string(name) + ": digits differ in width");
    for (const Fit &fit : fits) {
        int width = -1;
        for (const char *c = fit.text; *c; ++c)
            width += widthOf(*c) + 1;
        std::printf("  %3d of %3d  %s\n", width, fit.room, fit.text);
        if (width > fit.room)
            fail(std::string(name) + ": too wide: " + fit.text);
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4)
        fail("usage: fontstrip FONT.TXT FONT_BIG.TXT OUTPUT-DIRECTORY");
    const std::string out = argv[3];
    const Image small = makeStrip(kSmallSet, readDots(argv[1]), {0, 1, 1, 10, 3, shadeSmall});
    check("font.png", small, kSmallSet, kSmallFits);
    writePng(small, out + "/font.png");
    const Image big = makeStrip(kBigSet, readStrokes(argv[2]), {1, 1, 2, 19, 5, shadeBig});
    check("font_big.png", big, kBigSet, kBigFits);
    writePng(big, out + "/font_big.png");
}
