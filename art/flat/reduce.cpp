// Makes a large drawing small and ready for 16-bit colour.
//
// reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT opaque
// reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT key #RRGGBB
// reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT alpha
//
// "opaque" and "key" dither to the colours that a 5-6-5 pixel can show, so that
// cutting off the low bits changes nothing. With "key" a pixel that is less than
// half covered becomes the key, and no other pixel comes out as the key.

#include "image.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

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

/// The nearest value that `levels` can show, up or down by the pattern; flat colours
/// that can almost be shown stay flat.
float dithered(float value, int levels, float threshold)
{
    const float exact = std::clamp(value, 0.0f, 1.0f) * levels, near = std::round(exact);
    const float level = std::fabs(exact - near) < 0.12f ? near : std::floor(exact + threshold);
    const int shift = levels == 31 ? 3 : 2, bits = int(level);
    return float(bits << shift | bits >> (8 - 2 * shift)) / 255;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 6)
        fail("usage: reduce INPUT.PNG OUTPUT.PNG WIDTH HEIGHT opaque|alpha|key [#RRGGBB]");
    const Image source = readPng(argv[1]);
    const int w = std::atoi(argv[3]), h = std::atoi(argv[4]);
    const std::string mode = argv[5];
    if (w < 1 || h < 1 || (mode == "key") != (argc == 7))
        fail("reduce: bad size or mode");
    const Colour key = mode == "key" ? hex(argv[6]) : Colour{};
    const double sx = double(source.width) / w, sy = double(source.height) / h;
    Image result(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            Colour c = average(source, x * sx, y * sy, (x + 1) * sx, (y + 1) * sy);
            if (mode != "alpha") {
                const float t = pattern(x, y);
                c = {dithered(c.r, 31, t), dithered(c.g, 63, t), dithered(c.b, 31, t), c.a};
            }
            if (mode == "key" && c.a < 0.5f)
                c = key;
            else if (mode == "key" && c.r == key.r && c.g == key.g && c.b == key.b)
                c.g += 4 / 255.0f;
            result.at(x, y) = c;
        }
    writePng(result, argv[2], mode == "alpha" ? Alpha::Keep : Alpha::Drop);
}
