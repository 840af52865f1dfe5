// A small Earth for the icons and the shop: a ball with made-up continents,
// clouds, an ocean that catches the sun, and a rim of air.
//
// globe OUTPUT.PNG SIZE TURN TILT     TURN around the axis and TILT towards the viewer, in degrees

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "image.h"

namespace
{

struct Vec {
    float x, y, z;
};

Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vec operator*(Vec a, float f) { return {a.x * f, a.y * f, a.z * f}; }
float dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vec unit(Vec a) { return a * (1 / std::sqrt(dot(a, a))); }

float hash(int x, int y, int z)
{
    std::uint32_t h =
        std::uint32_t(x) * 374761393u + std::uint32_t(y) * 668265263u + std::uint32_t(z) * 2147483647u;
    h = (h ^ (h >> 13)) * 1274126177u;
    return float((h ^ (h >> 16)) & 0xFFFF) / 65535.0f;
}

float smooth(float t) { return t * t * (3 - 2 * t); }

float noise(Vec p)
{
    const int x = int(std::floor(p.x)), y = int(std::floor(p.y)), z = int(std::floor(p.z));
    const float fx = smooth(p.x - x), fy = smooth(p.y - y), fz = smooth(p.z - z);
    float sum = 0;
    for (int k = 0; k < 8; ++k) {
        const float wx = k & 1 ? fx : 1 - fx, wy = k & 2 ? fy : 1 - fy, wz = k & 4 ? fz : 1 - fz;
        sum += wx * wy * wz * hash(x + (k & 1), y + (k >> 1 & 1), z + (k >> 2));
    }
    return sum;
}

float cloudy(Vec p, int octaves)
{
    float sum = 0, weight = 0.5f;
    for (int i = 0; i < octaves; ++i, weight /= 2, p = p * 2.03f)
        sum += weight * noise(p);
    return sum;
}

float step(float from, float to, float v) { return smooth(std::clamp((v - from) / (to - from), 0.0f, 1.0f)); }

Colour surface(Vec p, Vec n, Vec sun)
{
    const float land = step(0.50f, 0.54f, cloudy(p * 2.1f + Vec{11, 3, 7}, 5));
    const float dry = step(0.40f, 0.60f, cloudy(p * 3.3f + Vec{1, 9, 4}, 4));
    const float ice = step(0.92f, 0.99f, std::fabs(p.y) + 0.1f * cloudy(p * 6, 3));
    const float cloud = step(0.50f, 0.70f, cloudy(Vec{p.x * 2.4f, p.y * 4.6f, p.z * 2.4f} + Vec{5, 2, 8}, 5));
    const float lit = std::max(0.0f, dot(n, sun));
    Colour c = mix(hex("#0E4488"), hex("#2F90E4"), lit);
    c = mix(c, mix(hex("#4E7A45"), hex("#B09A5A"), dry), land);
    c = mix(c, hex("#F0F6FC"), std::max(ice, cloud * 0.95f));
    const float day = 0.04f + 1.08f * step(-0.08f, 1.05f, dot(n, sun));
    const float glint =
        std::pow(std::max(0.0f, dot(n, unit(sun + Vec{0, 0, 1}))), 40.0f) * (1 - land) * (1 - cloud) * 0.5f;
    const float bounce = 0.05f + 0.04f * std::max(0.0f, -n.y);
    c = {c.r * (day + bounce * 0.5f) + glint, c.g * (day + bounce) + glint,
         c.b * (day + bounce * 1.8f) + glint * 0.9f, 1};
    const float rim = std::pow(1 - n.z, 2.6f) * (0.15f + step(-0.3f, 0.6f, dot(n, sun)));
    return mix(c, hex("#7FDCFF"), rim * 0.9f);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5)
        fail("usage: globe OUTPUT.PNG SIZE TURN TILT");
    const int size = std::atoi(argv[2]);
    const float turn = float(std::atof(argv[3]) * M_PI / 180), tilt = float(std::atof(argv[4]) * M_PI / 180);
    const Vec sun = unit({-0.6f, 0.65f, 0.45f});
    Image image(size, size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const float u = (x + 0.5f) / size * 2.0f - 1, v = 1 - (y + 0.5f) / size * 2.0f, d = u * u + v * v;
            if (d > 1)
                continue;
            const Vec n{u, v, std::sqrt(1 - d)};
            const Vec t{n.x, n.y * std::cos(tilt) + n.z * std::sin(tilt),
                        n.z * std::cos(tilt) - n.y * std::sin(tilt)};
            const Vec p{t.x * std::cos(turn) + t.z * std::sin(turn), t.y,
                        t.z * std::cos(turn) - t.x * std::sin(turn)};
            Colour c = surface(p, n, sun);
            image.at(x, y) = {std::min(c.r, 1.0f), std::min(c.g, 1.0f), std::min(c.b, 1.0f), 1};
        }
    writePng(image, argv[1], Alpha::Keep);
}
