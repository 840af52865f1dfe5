// Lights a flat drawing as if it were worked in metal.
//
// relief HEIGHT.PNG COLOUR.PNG GLOW.PNG OUTPUT.PNG SCALE [mirror]
//
// HEIGHT's brightness is the height of the surface, COLOUR its own colour and its
// outline, GLOW is laid over the lit surface as it is. The sun stands at the upper
// left; "mirror" turns the drawing around first, so that a mirrored part is lit
// by the same sun. SCALE is the drawing's pixels for one pixel of the screen.

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "image.h"

namespace
{

using Field = std::vector<float>;

Image mirrored(const Image &image)
{
    Image result = image;
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            result.at(x, y) = image.at(image.width - 1 - x, y);
    return result;
}

/// One direction of a box blur; step is 1 along rows and the width along columns.
void blurLine(const float *from, float *to, int count, int step, int radius)
{
    double sum = 0;
    const auto value = [&](int i) { return from[std::size_t(std::clamp(i, 0, count - 1)) * step]; };
    for (int i = -radius; i <= radius; ++i)
        sum += value(i);
    for (int i = 0; i < count; ++i) {
        to[std::size_t(i) * step] = float(sum / (2 * radius + 1));
        sum += value(i + radius + 1) - value(i - radius);
    }
}

Field blurred(Field field, int width, int height, int radius)
{
    Field other(field.size());
    for (int pass = 0; pass < 2; ++pass) {
        for (int y = 0; y < height; ++y)
            blurLine(&field[std::size_t(y) * width], &other[std::size_t(y) * width], width, 1, radius);
        for (int x = 0; x < width; ++x)
            blurLine(&other[x], &field[x], height, width, radius);
    }
    return field;
}

float hash(int x, int y)
{
    std::uint32_t h = std::uint32_t(x) * 374761393u + std::uint32_t(y) * 668265263u;
    h = (h ^ (h >> 13)) * 1274126177u;
    return float((h ^ (h >> 16)) & 0xFFFF) / 65535.0f - 0.5f;
}

struct Light {
    float diffuse, shine;
};

/// Sun and the faint light from below on a surface that climbs by gx and gy.
Light lightOn(float gx, float gy)
{
    const float sx = -0.59f, sy = -0.64f, sz = 0.49f;
    const float length = std::sqrt(gx * gx + gy * gy + 1);
    const float nx = -gx / length, ny = -gy / length, nz = 1 / length;
    const float sun = std::max(0.0f, nx * sx + ny * sy + nz * sz);
    const float fill = std::max(0.0f, 0.3f * nx + 0.8f * ny) * 0.10f;
    const float hz = (sz + 1) / 2, hx = sx / 2, hy = sy / 2, lh = std::sqrt(hx * hx + hy * hy + hz * hz);
    const float gloss = std::max(0.0f, (nx * hx + ny * hy + nz * hz) / lh);
    return {0.36f + 1.3f * sun + fill, std::pow(gloss, 24.0f)};
}

/// The surface's height, drawn and smoothed: a little, so that edges become slopes, and a lot, so that
/// what lies lower than its surroundings can be told.
struct Relief {
    int width, height, scale;
    Field fine, wide;

    Relief(const Image &drawing, int pixels) : width(drawing.width), height(drawing.height), scale(pixels)
    {
        Field raw(drawing.pixels.size());
        for (std::size_t i = 0; i < raw.size(); ++i)
            raw[i] = drawing.pixels[i].r * drawing.pixels[i].a;
        fine = blurred(raw, width, height, std::max(1, scale * 3 / 8));
        wide = blurred(raw, width, height, scale * 2);
    }
    float at(int x, int y) const
    {
        return fine[std::size_t(std::clamp(y, 0, height - 1)) * width + std::clamp(x, 0, width - 1)];
    }
};

Colour lit(const Relief &relief, int x, int y, Colour c)
{
    const float steep = 3.5f * relief.scale;
    const Light light = lightOn((relief.at(x + 1, y) - relief.at(x - 1, y)) * steep,
                                (relief.at(x, y + 1) - relief.at(x, y - 1)) * steep);
    const float depth = relief.wide[std::size_t(y) * relief.width + x] - relief.at(x, y);
    const float crevice = 1 - std::clamp(depth * 2.2f, 0.0f, 0.6f);
    const int px = x / relief.scale, py = y / relief.scale;
    const float brushed = 1 + hash(px, py) * 0.05f + hash(px / 5, py) * 0.07f;
    const float gain = light.diffuse * crevice * brushed;
    const float shine = std::max(0.0f, light.shine - 0.12f) * 0.30f * (0.3f + c.g);
    return {c.r * gain + shine, c.g * gain * 0.995f + shine * 0.96f, c.b * gain * 0.98f + shine * 0.9f, c.a};
}

Colour over(Colour top, Colour below)
{
    const float alpha = top.a + below.a * (1 - top.a);
    Colour c = alpha > 0 ? mix(below, top, top.a / alpha) : below;
    return {std::min(c.r, 1.0f), std::min(c.g, 1.0f), std::min(c.b, 1.0f), alpha};
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 6)
        fail("usage: relief HEIGHT.PNG COLOUR.PNG GLOW.PNG OUTPUT.PNG SCALE [mirror]");
    Image heights = readPng(argv[1]), colours = readPng(argv[2]), glow = readPng(argv[3]);
    if (argc > 6) {
        heights = mirrored(heights);
        colours = mirrored(colours);
        glow = mirrored(glow);
    }
    const Relief relief(heights, std::max(1, std::atoi(argv[5])));
    Image result(heights.width, heights.height);
    for (int y = 0; y < result.height; ++y)
        for (int x = 0; x < result.width; ++x)
            result.at(x, y) = over(glow.at(x, y), lit(relief, x, y, colours.at(x, y)));
    writePng(result, argv[4], Alpha::Keep);
}
