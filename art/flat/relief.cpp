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

#include "art/flat/drawing.h"
#include "art/noise.h"

using namespace art;

namespace
{

Drawing mirrored(Drawing drawing)
{
    for (int y = 0; y < drawing.height; ++y)
        std::reverse(&drawing.at(0, y), &drawing.at(0, y) + drawing.width);
    return drawing;
}

struct Light {
    float diffuse, shine;
};

/// Sun and the faint light from below on a surface that climbs by gx and gy.
Light lightOn(float gx, float gy)
{
    const Vector<float> sunward{-0.59f, -0.64f, 0.49f}, viewer{0, 0, 1};
    const float steep = std::sqrt(gx * gx + gy * gy + 1);
    const Vector<float> normal{-gx / steep, -gy / steep, 1 / steep};
    const float sun = std::max(0.0f, dot(normal, sunward));
    const float fill = std::max(0.0f, 0.3f * normal.x + 0.8f * normal.y) * 0.10f;
    const Vector<float> half = (sunward + viewer) * 0.5f;
    const float gloss = std::max(0.0f, dot(normal, half) / length(half));
    return {0.36f + 1.3f * sun + fill, std::pow(gloss, 24.0f)};
}

/// The surface's height, drawn and smoothed: a little, so that edges become slopes, and a lot, so that
/// what lies lower than its surroundings can be told.
struct Relief {
    int scale;
    Field fine, wide;

    Relief(const Drawing &drawing, int pixels) : scale(pixels)
    {
        const Field raw = mapped(drawing, [](const Paint &p) { return p.colour.x * p.alpha; });
        fine = blurred(raw, std::max(1, scale * 3 / 8));
        wide = blurred(raw, scale * 2);
    }
    float at(int x, int y) const
    {
        return fine.at(std::clamp(x, 0, fine.width - 1), std::clamp(y, 0, fine.height - 1));
    }
};

Colour lit(const Relief &relief, int x, int y, Colour c)
{
    const float steep = 3.5f * float(relief.scale);
    const Light light = lightOn((relief.at(x + 1, y) - relief.at(x - 1, y)) * steep,
                                (relief.at(x, y + 1) - relief.at(x, y - 1)) * steep);
    const float depth = relief.wide.at(x, y) - relief.at(x, y);
    const float crevice = 1 - std::clamp(depth * 2.2f, 0.0f, 0.6f);
    const int px = x / relief.scale, py = y / relief.scale;
    const float brushed = 1 + (grain(px, py) - 0.5f) * 0.05f + (grain(px / 5, py) - 0.5f) * 0.07f;
    const float gain = light.diffuse * crevice * brushed;
    const float shine = std::max(0.0f, light.shine - 0.12f) * 0.30f * (0.3f + c.y);
    return {c.x * gain + shine, c.y * gain * 0.995f + shine * 0.96f, c.z * gain * 0.98f + shine * 0.9f};
}

Paint over(const Paint &top, const Paint &below)
{
    const float alpha = top.alpha + below.alpha * (1 - top.alpha);
    return {alpha > 0 ? mix(below.colour, top.colour, top.alpha / alpha) : below.colour, alpha};
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 6)
        fail("usage: relief HEIGHT.PNG COLOUR.PNG GLOW.PNG OUTPUT.PNG SCALE [mirror]");
    Drawing heights = readPixels<float>(argv[1]), colours = readPixels<float>(argv[2]),
            glow = readPixels<float>(argv[3]);
    if (argc > 6) {
        heights = mirrored(heights);
        colours = mirrored(colours);
        glow = mirrored(glow);
    }
    const Relief relief(heights, std::max(1, std::atoi(argv[5])));
    Drawing result(heights.width, heights.height);
    for (int y = 0; y < result.height; ++y)
        for (int x = 0; x < result.width; ++x) {
            const Paint &own = colours.at(x, y);
            result.at(x, y) = over(glow.at(x, y), {lit(relief, x, y, own.colour), own.alpha});
        }
    writeDrawing(argv[4], result, Alpha::Keep);
}
