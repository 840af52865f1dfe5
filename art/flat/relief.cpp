// Lights a flat drawing as if it were worked in metal.
//
// relief HEIGHT.PNG COLOUR.PNG GLOW.PNG OUTPUT.PNG SCALE [mirror]
//
// HEIGHT's brightness is the height of the surface, COLOUR its own colour and its
// outline, GLOW is laid over the lit surface as it is. The sun stands at the upper
// left; "mirror" turns the drawing around first, so that a mirrored part is lit
// by the same sun. SCALE is the drawing's pixels for one pixel of the screen.

#include "image.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

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
    const int scale = std::atoi(argv[5]), w = heights.width, h = heights.height;
    Field raw(heights.pixels.size());
    for (std::size_t i = 0; i < raw.size(); ++i)
        raw[i] = heights.pixels[i].r * heights.pixels[i].a;
    const Field fine = blurred(raw, w, h, std::max(1, scale * 3 / 8)), wide = blurred(raw, w, h, scale * 2);

    Image result(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const std::size_t i = std::size_t(y) * w + x;
            const auto at = [&](int u, int v) {
                return fine[std::size_t(std::clamp(v, 0, h - 1)) * w + std::clamp(u, 0, w - 1)];
            };
            const float steep = 7.0f * scale;
            const Light light = lightOn((at(x + 1, y) - at(x - 1, y)) / 2 * steep, (at(x, y + 1) - at(x, y - 1)) / 2 * steep);
            const float crevice = 1 - std::clamp((wide[i] - fine[i]) * 2.2f, 0.0f, 0.6f);
            const float brushed = 1 + hash(x / scale, y / scale) * 0.05f + hash(x / scale / 5, y / scale) * 0.07f;
            Colour c = colours.pixels[i];
            const float gain = light.diffuse * crevice * brushed;
            const float shine = std::max(0.0f, light.shine - 0.12f) * 0.30f * (0.3f + c.g);
            c = {c.r * gain + shine, c.g * gain * 0.995f + shine * 0.96f, c.b * gain * 0.98f + shine * 0.9f, c.a};
            const Colour over = glow.pixels[i];
            const float a = over.a + c.a * (1 - over.a);
            if (a > 0)
                c = mix(c, {over.r, over.g, over.b, 1}, over.a / a);
            c.a = a;
            result.pixels[i] = {std::min(c.r, 1.0f), std::min(c.g, 1.0f), std::min(c.b, 1.0f), c.a};
        }
    writePng(result, argv[4], Alpha::Keep);
}
