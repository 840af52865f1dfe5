// Pictures in memory, their colours, and their way from and to a PNG file.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "art/vector.h"

namespace art
{

/// Ends the program with this line on the error output.
[[noreturn]] void fail(const std::string &why);

/// Something for every pixel, row by row from the top.
template <class T> struct Grid {
    int width = 0, height = 0;
    std::vector<T> pixels;

    Grid() = default;
    Grid(int w, int h, T fill = {}) : width(w), height(h), pixels(static_cast<std::size_t>(w) * h, fill) {}

    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    T &at(int x, int y) { return pixels[static_cast<std::size_t>(y) * width + x]; }
    const T &at(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }
};

/// A grid of what `convert` makes of every pixel.
template <class T, class Convert> auto mapped(const Grid<T> &from, Convert convert)
{
    Grid<std::invoke_result_t<Convert, const T &>> to(from.width, from.height);
    std::ranges::transform(from.pixels, to.pixels.begin(), convert);
    return to;
}

using Field = Grid<float>;

/// What lies beyond the left and right edge; beyond the upper and lower one the edge goes on.
enum class Sides { GoOn, MeetAround };

/// Averages over a square of 2 `radius` + 1 pixels, two times.
Field blurred(Field field, int radius, Sides sides = Sides::GoOn);

template <class T> struct Covered {
    Vector<T> colour; // not multiplied by alpha
    T alpha = 0;      // 0 = nothing there
};

/// A pixel in linear light.
using Pixel = Covered<double>;
using Picture = Grid<Pixel>;

inline double toLinear(double s) { return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4); }
inline double toSrgb(double l)
{
    l = clamp01(l);
    return l <= 0.0031308 ? l * 12.92 : 1.055 * std::pow(l, 1 / 2.4) - 0.055;
}
inline Vec toLinear(Vec s) { return {toLinear(s.x), toLinear(s.y), toLinear(s.z)}; }
inline Vec toSrgb(Vec l) { return {toSrgb(l.x), toSrgb(l.y), toSrgb(l.z)}; }

/// A colour as it is written in a style sheet, its parts from 0 to 1 as the screen takes them.
template <class T> Vector<T> screenHex(std::uint32_t rgb)
{
    const auto part = [rgb](int shift) { return static_cast<T>(rgb >> shift & 255) / T(255); };
    return {part(16), part(8), part(0)};
}

/// The same in linear light.
inline Vec hex(std::uint32_t rgb) { return toLinear(screenHex<double>(rgb)); }

/// A pixel as a file holds it: 1 byte for grey, 3 for red, green and blue, 4 with alpha.
template <std::size_t N> using Bytes = std::array<std::uint8_t, N>;

template <class T> std::uint8_t byteOf(T share)
{
    return static_cast<std::uint8_t>(std::lround(clamp01(share) * 255));
}

/// Takes a colour as the screen does, not in linear light.
template <class T> Bytes<3> bytesOf(Vector<T> c) { return {byteOf(c.x), byteOf(c.y), byteOf(c.z)}; }

inline Bytes<4> withAlpha(const Bytes<3> &colour, std::uint8_t alpha)
{
    return {colour[0], colour[1], colour[2], alpha};
}

/// These end the program when the file cannot be read or written.
Grid<Bytes<4>> readPng(const std::string &path);
void writePng(const std::string &path, int width, int height, std::size_t channels, const void *bytes);
template <std::size_t N> void writePng(const std::string &path, const Grid<Bytes<N>> &picture)
{
    writePng(path, picture.width, picture.height, N, picture.pixels.data());
}

/// A file's pixels, their parts from 0 to 1 as the screen takes them.
template <class T> Grid<Covered<T>> readPixels(const std::string &path)
{
    return mapped(readPng(path), [](const Bytes<4> &p) {
        return Covered<T>{{p[0] / T(255), p[1] / T(255), p[2] / T(255)}, p[3] / T(255)};
    });
}

} // namespace art
