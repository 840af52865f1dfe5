// What the art programs share: a picture in linear light, PNG in and out, and three-dimensional noise.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <png.h>

namespace art
{

struct Vec {
    double x = 0, y = 0, z = 0;
};

inline Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec operator*(Vec a, double k) { return {a.x * k, a.y * k, a.z * k}; }
inline double dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline double length(Vec a) { return std::sqrt(dot(a, a)); }
inline Vec unit(Vec a) { return a * (1.0 / std::max(1e-12, length(a))); }
inline Vec mix(Vec a, Vec b, double t) { return a * (1 - t) + b * t; }
inline Vec cross(Vec a, Vec b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double mix(double a, double b, double t) { return a + (b - a) * t; }
inline double clamp01(double v) { return std::clamp(v, 0.0, 1.0); }

/// 0 below `from`, 1 above `to`, smooth between; `from` may be the larger one.
inline double smooth(double from, double to, double v)
{
    const double t = clamp01((v - from) / (to - from));
    return t * t * (3 - 2 * t);
}

inline double toLinear(double s) { return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4); }
inline double toSrgb(double l)
{
    l = clamp01(l);
    return l <= 0.0031308 ? l * 12.92 : 1.055 * std::pow(l, 1 / 2.4) - 0.055;
}

/// A colour as it is written in a style sheet, in linear light.
inline Vec hex(std::uint32_t rgb)
{
    return {toLinear((rgb >> 16 & 255) / 255.0), toLinear((rgb >> 8 & 255) / 255.0),
            toLinear((rgb & 255) / 255.0)};
}

[[noreturn]] inline void fail(const std::string &why)
{
    std::fprintf(stderr, "%s\n", why.c_str());
    std::exit(1);
}

struct Pixel {
    Vec colour;       // linear light, not multiplied by alpha
    double alpha = 1; // 0 = nothing there
};

struct Picture {
    int width = 0, height = 0;
    std::vector<Pixel> pixels;

    Picture() = default;
    Picture(int w, int h) : width(w), height(h), pixels(static_cast<std::size_t>(w) * h) {}

    Pixel &at(int x, int y) { return pixels[static_cast<std::size_t>(y) * width + x]; }
    const Pixel &at(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }
};

inline Picture readPng(const std::string &path)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str()))
        fail("cannot read " + path);
    image.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr))
        fail("cannot decode " + path);
    std::array<double, 256> linear{};
    for (int i = 0; i < 256; ++i)
        linear[i] = toLinear(i / 255.0);
    Picture picture(static_cast<int>(image.width), static_cast<int>(image.height));
    for (std::size_t i = 0; i < picture.pixels.size(); ++i)
        picture.pixels[i] = {{linear[bytes[4 * i]], linear[bytes[4 * i + 1]], linear[bytes[4 * i + 2]]},
                             bytes[4 * i + 3] / 255.0};
    return picture;
}

/// Writes interleaved 8-bit samples; `channels` is 1 (grey), 3 (RGB) or 4 (RGB and alpha).
inline void writePng(const std::string &path, int width, int height, int channels,
                     const std::vector<std::uint8_t> &bytes)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = channels == 1 ? PNG_FORMAT_GRAY : channels == 3 ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
    if (!png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr))
        fail("cannot write " + path);
}

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

} // namespace art
