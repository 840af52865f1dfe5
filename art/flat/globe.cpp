// A small Earth for the icons and the shop: a ball with made-up continents,
// clouds, an ocean that catches the sun, and a rim of air.
//
// globe OUTPUT.PNG SIZE TURN TILT     TURN around the axis and TILT towards the viewer, in degrees

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "art/flat/drawing.h"
#include "art/noise.h"

using namespace art;

namespace
{

using Place = Vector<float>;

/// Chances at whole coordinates, and between them what lies smoothly between.
float noiseAt(Place p)
{
    const int x = int(std::floor(p.x)), y = int(std::floor(p.y)), z = int(std::floor(p.z));
    const float fx = smooth(0, 1, p.x - float(x)), fy = smooth(0, 1, p.y - float(y)),
                fz = smooth(0, 1, p.z - float(z));
    float sum = 0;
    for (int k = 0; k < 8; ++k) {
        const float wx = k & 1 ? fx : 1 - fx, wy = k & 2 ? fy : 1 - fy, wz = k & 4 ? fz : 1 - fz;
        sum += wx * wy * wz * grain(x + (k & 1), y + (k >> 1 & 1), z + (k >> 2));
    }
    return sum;
}

float cloudy(Place p, int octaves)
{
    float sum = 0, weight = 0.5f;
    for (int i = 0; i < octaves; ++i, weight /= 2, p = p * 2.03f)
        sum += weight * noiseAt(p);
    return sum;
}

Colour surface(Place p, Place n, Place sun)
{
    const float land = smooth(0.50f, 0.54f, cloudy(p * 2.1f + Place{11, 3, 7}, 5));
    const float dry = smooth(0.40f, 0.60f, cloudy(p * 3.3f + Place{1, 9, 4}, 4));
    const float ice = smooth(0.92f, 0.99f, std::fabs(p.y) + 0.1f * cloudy(p * 6, 3));
    const float cloud =
        smooth(0.50f, 0.70f, cloudy(Place{p.x * 2.4f, p.y * 4.6f, p.z * 2.4f} + Place{5, 2, 8}, 5));
    const float lit = std::max(0.0f, dot(n, sun));
    Colour c = mix(rgb(0x0E4488), rgb(0x2F90E4), lit);
    c = mix(c, mix(rgb(0x4E7A45), rgb(0xB09A5A), dry), land);
    c = mix(c, rgb(0xF0F6FC), std::max(ice, cloud * 0.95f));
    const float day = 0.04f + 1.08f * smooth(-0.08f, 1.05f, dot(n, sun));
    const float glint =
        std::pow(std::max(0.0f, dot(n, unit(sun + Place{0, 0, 1}))), 40.0f) * (1 - land) * (1 - cloud) * 0.5f;
    const float bounce = 0.05f + 0.04f * std::max(0.0f, -n.y);
    c = {c.x * (day + bounce * 0.5f) + glint, c.y * (day + bounce) + glint,
         c.z * (day + bounce * 1.8f) + glint * 0.9f};
    const float rim = std::pow(1 - n.z, 2.6f) * (0.15f + smooth(-0.3f, 0.6f, dot(n, sun)));
    return mix(c, rgb(0x7FDCFF), rim * 0.9f);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5)
        fail("usage: globe OUTPUT.PNG SIZE TURN TILT");
    const int size = std::atoi(argv[2]);
    const float turn = float(std::atof(argv[3]) * M_PI / 180), tilt = float(std::atof(argv[4]) * M_PI / 180);
    const Place sun = unit(Place{-0.6f, 0.65f, 0.45f});
    Drawing globe(size, size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const float u = (float(x) + 0.5f) / float(size) * 2.0f - 1,
                        v = 1 - (float(y) + 0.5f) / float(size) * 2.0f, d = u * u + v * v;
            if (d > 1)
                continue;
            const Place n{u, v, std::sqrt(1 - d)};
            const Place t{n.x, n.y * std::cos(tilt) + n.z * std::sin(tilt),
                          n.z * std::cos(tilt) - n.y * std::sin(tilt)};
            const Place p{t.x * std::cos(turn) + t.z * std::sin(turn), t.y,
                          t.z * std::cos(turn) - t.x * std::sin(turn)};
            globe.at(x, y) = {surface(p, n, sun), 1};
        }
    writeDrawing(argv[1], globe, Alpha::Keep);
}
