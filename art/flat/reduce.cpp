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
#include <cstring>

#include "image.h"

namespace
{

float toLinear(float v) { return std::pow(v, 2.2f); }
float toScreen(float v) { return std::pow(std::max(v, 0.0f), 1 / 2.2f); }

/// Mean of the source pixels under one target pixel, weighted by alpha, in linear light.
Colour average(const Image &source, double x0, double y0, double x1, double y1)
{
    double r = 0, g = 0, b = 0, a = 0, area = 0;
    for (int y = int(y0); y < std::min(source.height, int(std::ceil(y1))); ++y)
        for (int x = int(x0); x < std::min(source.width, int(std::ceil(x1))); ++x) {
            const double part = (std::min(x1, x + 1.0) - std::max(x0, double(x))) *
                                (std::min(y1, y + 1.0) - std::max(y0, double(y)));
            const Colour &c = source.at(x, y);
            area += part;
            a += part * c.a;
            r += part * c.a * toLinear(c.r);
            g += part * c.a * toLinear(c.g);
            b += part * c.a * toLinear(c.b);
        }
    if (a <= 0)
        return {0, 0, 0, 0};
    return {toScreen(float(r / a)), toScreen(float(g / a)), toScreen(float(b / a)), float(a / area)};
}

/// 0 to just under 1, an 8 x 8 pattern that spreads its values evenly.
float pattern(int x, int y)
{
    int value = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const int bx = x >> bit & 1, by = y >> bit & 1;
        value = value * 4 + ((bx ^ by) * 2 + by);
    }
    return (value + 0.5f) / 64;
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
    while (level < top && shown(level + 1, bits) <= exact)
        ++level;
    if (level == top)
        return 1;
    const float low = float(shown(level, bits)), part = (exact - low) / (shown(level + 1, bits) - low);
    const bool up = part > 0.88f || (part > 0.12f && part + threshold >= 1);
    return float(shown(level + up, bits)) / 255;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 6)
        fail("usage: reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT opaque|alpha|key|corner [#RRGGBB]");
    const Image source = readPng(argv[1]);
    const int w = std::atoi(argv[3]), h = std::atoi(argv[4]);
    const std::string mode = argv[5];
    const bool keyed = mode == "key" || mode == "corner";
    if (w < 1 || h < 1 || keyed != (argc == 7) || (!keyed && mode != "opaque" && mode != "alpha"))
        fail("reduce: bad size or mode");
    const Colour key = keyed ? hex(argv[6]) : Colour{};
    const double sx = double(source.width) / w, sy = double(source.height) / h;
    Image result(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            Colour c = average(source, x * sx, y * sy, (x + 1) * sx, (y + 1) * sy);
            if (mode != "alpha") {
                const float t = pattern(x, y);
                c = {dithered(c.r, 5, t), dithered(c.g, 6, t), dithered(c.b, 5, t), c.a};
            }
            if (keyed && c.a < 0.5f)
                c = key;
            else if (keyed && c.r == key.r && c.g == key.g && c.b == key.b)
                c.g += 4 / 255.0f;
            result.at(x, y) = c;
        }
    const Colour first = result.at(0, 0);
    if (mode == "corner" && (first.r != key.r || first.g != key.g || first.b != key.b))
        fail(std::string(argv[2]) + ": the top-left pixel is not free");
    writePng(result, argv[2], mode == "alpha" ? Alpha::Keep : Alpha::Drop);
}
