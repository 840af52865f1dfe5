// Three numbers together, places and colours alike, and how to go from one value to another.
#pragma once

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace art
{

/// x, y and z of a place, or red, green and blue of a colour.
template <class T> struct Vector {
    T x = 0, y = 0, z = 0;

    bool operator==(const Vector &) const = default;
};

using Vec = Vector<double>;

/// A factor beside a vector takes the vector's type, whatever the number was written as.
template <class T> using Factor = std::type_identity_t<T>;

template <class T> Vector<T> operator+(Vector<T> a, Vector<T> b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
template <class T> Vector<T> operator-(Vector<T> a, Vector<T> b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
template <class T> Vector<T> operator*(Vector<T> a, Factor<T> k) { return {a.x * k, a.y * k, a.z * k}; }
template <class T> T dot(Vector<T> a, Vector<T> b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
template <class T> T length(Vector<T> a) { return std::sqrt(dot(a, a)); }
template <class T> Vector<T> unit(Vector<T> a) { return a * (1 / std::max(T(1e-12), length(a))); }

inline Vec cross(Vec a, Vec b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

template <class T> T clamp01(T v) { return std::clamp<T>(v, 0, 1); }

/// `a` for a share of 0 or less, `b` for 1 or more.
template <class T> Vector<T> mix(Vector<T> a, Vector<T> b, Factor<T> share)
{
    share = clamp01(share);
    return a * (1 - share) + b * share;
}

inline double mix(double a, double b, double share) { return a + (b - a) * share; }

/// 0 below `from`, 1 above `to`, smooth between; `from` may be the larger one.
template <class T> T smooth(Factor<T> from, Factor<T> to, T v)
{
    const T t = clamp01((v - from) / (to - from));
    return t * t * (3 - 2 * t);
}

} // namespace art
