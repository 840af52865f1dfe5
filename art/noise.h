// Chance that comes out alike in every run, and three-dimensional noise made of it.
#pragma once

#include <cstdint>

#include "art/vector.h"

namespace art
{

inline std::uint32_t hash(std::uint32_t x, std::uint32_t y, std::uint32_t z)
{
    std::uint32_t h = x * 0x8da6b343u ^ y * 0xd8163841u ^ z * 0xcb1ab31fu;
    h = (h ^ h >> 15) * 0x2c1b3c6du;
    h = (h ^ h >> 12) * 0x297a2d39u;
    return h ^ h >> 15;
}

/// A number in [0, 1) that depends on nothing but its arguments.
inline double chance(std::uint32_t x, std::uint32_t y = 0, std::uint32_t z = 0)
{
    return hash(x, y, z) / 4294967296.0;
}

/// Smooth noise in about [-1, 1], one feature a unit of length.
inline double noise(Vec p)
{
    const double fx = std::floor(p.x), fy = std::floor(p.y), fz = std::floor(p.z);
    const auto ix = static_cast<std::uint32_t>(static_cast<std::int64_t>(fx));
    const auto iy = static_cast<std::uint32_t>(static_cast<std::int64_t>(fy));
    const auto iz = static_cast<std::uint32_t>(static_cast<std::int64_t>(fz));
    const Vec f{p.x - fx, p.y - fy, p.z - fz};
    const auto fade = [](double t) { return t * t * t * (t * (t * 6 - 15) + 10); };
    const auto corner = [&](std::uint32_t dx, std::uint32_t dy, std::uint32_t dz) {
        const std::uint32_t h = hash(ix + dx, iy + dy, iz + dz);
        const Vec d{f.x - dx, f.y - dy, f.z - dz};
        const double u = (h & 8) ? d.y : d.x;
        const double v = (h & 4) ? d.z : (h & 8) ? d.x : d.y;
        return ((h & 1) ? -u : u) + ((h & 2) ? -v : v);
    };
    const double u = fade(f.x), v = fade(f.y), w = fade(f.z);
    return mix(mix(mix(corner(0, 0, 0), corner(1, 0, 0), u), mix(corner(0, 1, 0), corner(1, 1, 0), u), v),
               mix(mix(corner(0, 0, 1), corner(1, 0, 1), u), mix(corner(0, 1, 1), corner(1, 1, 1), u), v), w);
}

/// Noise summed over octaves, each half as strong and twice as fine as the one before.
inline double fractal(Vec p, int octaves)
{
    double sum = 0, strength = 1;
    for (int i = 0; i < octaves; ++i, strength *= 0.5) {
        sum += strength * noise(p);
        p = Vec{p.x * 2.03 + 11.3, p.y * 2.03 - 7.1, p.z * 2.03 + 3.7};
    }
    return sum;
}

/// Noise with sharp crests, 0 in the valleys to about 1 on the crests.
inline double ridged(Vec p, int octaves)
{
    double sum = 0, strength = 0.5;
    for (int i = 0; i < octaves; ++i, strength *= 0.5) {
        const double crest = 1 - std::fabs(noise(p));
        sum += strength * crest * crest;
        p = Vec{p.x * 2.1 + 5.3, p.y * 2.1 + 1.7, p.z * 2.1 - 9.2};
    }
    return sum;
}

/// Another such number, 0 and 1 included, in the coarser steps that the flat drawings are grained with.
inline float grain(int x, int y, int z = 0)
{
    std::uint32_t h = static_cast<std::uint32_t>(x) * 374761393u +
                      static_cast<std::uint32_t>(y) * 668265263u +
                      static_cast<std::uint32_t>(z) * 2147483647u;
    h = (h ^ h >> 13) * 1274126177u;
    return static_cast<float>((h ^ h >> 16) & 0xFFFF) / 65535.0f;
}

/// An even pattern of 16 thresholds between 0 and 1: what is drawn where a share lies above it covers that
/// share.
inline double threshold(int x, int y)
{
    constexpr int kBayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    return (kBayer[y & 3][x & 3] + 0.5) / 16;
}

} // namespace art
