// Makes a large drawing small and ready for 16-bit colour.
//
// reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT opaque
// reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT key #RRGGBB
// reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT corner #RRGGBB
// reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT alpha
//
// All but "alpha" dither to the colours that a 5-6-5 pixel can show, so that
// cutting off the low bits changes nothing. With "key" a pixel that is less than
// half covered becomes the key, and no other pixel comes out as the key. "corner"
// is "key" for a picture whose key is read from its top-left pixel.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "art/flat/drawing.h"

using namespace art;

namespace
{

// Light by a plain power instead of the screen's exact curve: the drawings are balanced for it.
constexpr float kGamma = 2.2f;
float lightOf(float v) { return std::pow(v, kGamma); }
float screenOf(float light) { return std::pow(std::max(light, 0.0f), 1 / kGamma); }

/// Mean of the source pixels under one target pixel, weighted by alpha, in light.
Paint average(const Drawing &source, double x0, double y0, double x1, double y1)
{
    Vec sum;
    double cover = 0, area = 0;
    for (int y = int(y0); y < std::min(source.height, int(std::ceil(y1))); ++y)
        for (int x = int(x0); x < std::min(source.width, int(std::ceil(x1))); ++x) {
            const double part = (std::min(x1, x + 1.0) - std::max(x0, double(x))) *
                                (std::min(y1, y + 1.0) - std::max(y0, double(y)));
            const auto &[colour, alpha] = source.at(x, y);
            sum = sum + Vec{lightOf(colour.x), lightOf(colour.y), lightOf(colour.z)} * (part * alpha);
            cover += part * alpha;
            area += part;
        }
    if (cover <= 0)
        return {};
    return {{screenOf(float(sum.x / cover)), screenOf(float(sum.y / cover)), screenOf(float(sum.z / cover))},
            float(cover / area)};
}

/// 0 to just under 1, an 8 x 8 pattern that spreads its values evenly.
float pattern(int x, int y)
{
    int value = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const int bx = x >> bit & 1, by = y >> bit & 1;
        value = value * 4 + ((bx ^ by) * 2 + by);
    }
    return (float(value) + 0.5f) / 64;
}

/// What a screen shows for a level of 5 or 6 bits, 0 to 255.
int shown(int level, int bits) { return level << (8 - bits) | level >> (2 * bits - 8); }

/// The value that `bits` can show next below or above, chosen by the pattern so that the mean
/// survives; a colour that can almost be shown stays flat.
float dithered(float value, int bits, float threshold)
{
    const float exact = std::clamp(value, 0.0f, 1.0f) * 255;
    const int top = (1 << bits) - 1;
    int level = 0;
    while (level < top && float(shown(level + 1, bits)) <= exact)
        ++level;
    if (level == top)
        return 1;
    const float low = float(shown(level, bits)), part = (exact - low) / (float(shown(level + 1, bits)) - low);
    const bool up = part > 0.88f || (part > 0.12f && part + threshold >= 1);
    return float(shown(level + up, bits)) / 255;
}

Colour dithered(Colour c, float threshold)
{
    return {dithered(c.x, 5, threshold), dithered(c.y, 6, threshold), dithered(c.z, 5, threshold)};
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 6)
        fail("usage: reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT opaque|alpha|key|corner [#RRGGBB]");
    const Drawing source = readPixels<float>(argv[1]);
    const int w = std::atoi(argv[3]), h = std::atoi(argv[4]);
    const std::string mode = argv[5];
    const bool keyed = mode == "key" || mode == "corner";
    if (w < 1 || h < 1 || keyed != (argc == 7) || (!keyed && mode != "opaque" && mode != "alpha"))
        fail("reduce: bad size or mode");
    const Colour key = keyed ? parseRgb(argv[6]) : Colour{};
    const double sx = double(source.width) / w, sy = double(source.height) / h;
    Drawing result(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            Paint &p = result.at(x, y);
            p = average(source, x * sx, y * sy, (x + 1) * sx, (y + 1) * sy);
            if (mode != "alpha")
                p.colour = dithered(p.colour, pattern(x, y));
            if (keyed && p.alpha < 0.5f)
                p.colour = key;
            else if (keyed && p.colour == key)
                p.colour.y += 4 / 255.0f;
        }
    if (mode == "corner" && result.at(0, 0).colour != key)
        fail(std::string(argv[2]) + ": the top-left pixel is not free");
    writeDrawing(argv[2], result, mode == "alpha" ? Alpha::Keep : Alpha::Drop);
}
