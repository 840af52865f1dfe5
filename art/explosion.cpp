// Renders the blast: a cloud of burning puffs that bursts, rolls up, breaks and thins out, marched through
// ray by ray.
#include <cstdio>
#include <iterator>
#include <utility>

#include "art/noise.h"
#include "art/picture.h"

using namespace art;

namespace
{

constexpr int kFrames = 20;
constexpr int kSize = 64;   // pixels of the finished frame, the blast fills a radius of 28
constexpr int kSamples = 4; // samples a pixel and direction
constexpr double kReach = 28;

struct Puff {
    Vec way;
    double far, size, birth, heat, cooling;
};

/// Evenly spread directions, `i` of `count`.
Vec spread(int i, int count, double twist)
{
    const double z = 1 - 2 * (i + 0.5) / count, a = 2.39996 * i + twist, r = std::sqrt(1 - z * z);
    return {r * std::cos(a), z, r * std::sin(a)};
}

/// A shell of puffs that flies out and cools fast around a heart that stays and burns longer.
std::vector<Puff> makePuffs()
{
    constexpr int kShell = 40, kHeart = 16;
    std::vector<Puff> puffs;
    for (int i = 0; i < kShell; ++i) {
        const auto n = static_cast<std::uint32_t>(i);
        const Vec stray{chance(n, 1) - 0.5, chance(n, 2) - 0.5, chance(n, 3) - 0.5};
        puffs.push_back({unit(spread(i, kShell, 0.4) + stray * 0.55), 0.58 + 0.30 * chance(n, 4),
                         0.24 + 0.15 * chance(n, 5), 0.02 * chance(n, 6), 0.95 + 0.3 * chance(n, 7),
                         3.0 + 1.6 * chance(n, 8)});
    }
    for (int i = 0; i < kHeart; ++i) {
        const auto n = static_cast<std::uint32_t>(i + 100);
        puffs.push_back({spread(i, kHeart, 1.9), 0.16 + 0.26 * chance(n, 4), 0.30 + 0.12 * chance(n, 5), 0.0,
                         1.15 + 0.2 * chance(n, 7), 2.2 + 1.3 * chance(n, 8)});
    }
    return puffs;
}

struct Ball {
    Vec middle;
    double radius, heat;
};

/// Where the puffs are at time `t` (0 to 1), in units of the blast's reach.
std::vector<Ball> ballsAt(const std::vector<Puff> &puffs, double t)
{
    std::vector<Ball> balls;
    for (const Puff &p : puffs) {
        const double age = t - p.birth;
        if (age <= 0)
            continue;
        const double burst = 1 - std::exp(-11 * age);
        const double out = p.far * burst + 0.07 * age;
        const double grow = p.size * (0.35 + 0.85 * burst) * (1 + 0.12 * age);
        balls.push_back(
            {p.way * out + Vec{0, 0.07 * age * age, 0}, grow, p.heat * std::exp(-p.cooling * age)});
    }
    return balls;
}

Vec fireColour(double heat)
{
    static const std::pair<double, std::uint32_t> kRamp[] = {
        {0.00, 0x2A2624}, {0.09, 0x4A342C}, {0.17, 0x5E2C1E}, {0.27, 0xA82E16},
        {0.38, 0xD9401E}, {0.55, 0xFF9A2E}, {0.74, 0xFFE27A}, {0.95, 0xFFFDF0}};
    for (std::size_t i = 1; i < std::size(kRamp); ++i)
        if (heat < kRamp[i].first)
            return mix(hex(kRamp[i - 1].second), hex(kRamp[i].second),
                       clamp01((heat - kRamp[i - 1].first) / (kRamp[i].first - kRamp[i - 1].first)));
    return hex(0xFFFDF0);
}

struct Sample {
    double density = 0, heat = 0;
};

Sample sampleAt(const std::vector<Ball> &balls, const Vec &p, double t)
{
    double field = 0, heat = 0;
    for (const Ball &b : balls) {
        const Vec d = p - b.middle;
        const double q = dot(d, d) / (b.radius * b.radius);
        if (q >= 1)
            continue;
        const double w = (1 - q) * (1 - q);
        field += w;
        heat += w * b.heat;
    }
    if (field <= 0)
        return {};
    heat /= field;
    // The pattern is carried outwards with the cloud, so that it opens up instead of standing still.
    const Vec q = p * (1 / (0.45 + 0.75 * (1 - std::exp(-8 * t)) + 0.12 * t));
    const double rough = fractal(q * 3.4 + Vec{14.9, 5.5 - 0.7 * t, 1.3 + 0.9 * t}, 4);
    const double wear = 0.22 + 0.25 * smooth(0.15, 0.5, t) + 1.34 * smooth(0.42, 1.0, t);
    const double density = smooth(0.0, 0.42, std::min(field, 1.1) * 1.25 + (0.45 + 0.45 * t) * rough - wear);
    return {density, clamp01(heat * (1.0 + (0.45 + 0.9 * smooth(0.05, 0.4, t)) * rough))};
}

Pixel march(const std::vector<Ball> &balls, double x, double y, double t)
{
    const Vec sun = unit(Vec{-0.6, 0.65, -0.45});
    constexpr int kSteps = 44;
    Vec colour;
    double through = 1;
    for (int i = 0; i < kSteps && through > 0.02; ++i) {
        const Vec p{x, y, -1.15 + 2.3 * (i + 0.5) / kSteps};
        const Sample s = sampleAt(balls, p, t);
        if (s.density <= 0)
            continue;
        const double shade = sampleAt(balls, p + sun * 0.14, t).density;
        const double lit = s.heat > 0.5 ? 1 : mix(mix(2.7, 0.5, shade), 1.0, s.heat * 2);
        const double thick = 22 * (1 - 0.86 * smooth(0.55, 1.0, t));
        const double block = 1 - std::exp(-s.density * thick * 2.3 / kSteps);
        colour = colour + fireColour(s.heat) * (lit * block * through);
        through *= 1 - block;
    }
    const double alpha = 1 - through;
    return {alpha > 0 ? colour * (1 / alpha) : Vec{}, alpha};
}

/// Lays `top` over `below`.
Pixel over(const Pixel &top, const Pixel &below)
{
    const double alpha = top.alpha + below.alpha * (1 - top.alpha);
    if (alpha <= 0)
        return {};
    return {(top.colour * top.alpha + below.colour * (below.alpha * (1 - top.alpha))) * (1 / alpha), alpha};
}

/// Sparks are short streaks that fly outwards, slow down and die.
Pixel sparkAt(double x, double y, double t)
{
    constexpr std::uint32_t kSparks = 30;
    Pixel result;
    for (std::uint32_t i = 0; i < kSparks; ++i) {
        const double angle = 6.2831853 * (i + 0.9 * chance(i, 21)) / kSparks,
                     life = 0.30 + 0.45 * chance(i, 23);
        const double age = t - 0.03;
        if (age <= 0 || age > life)
            continue;
        const double head = (0.72 + 0.38 * chance(i, 22)) * (1 - std::exp(-8 * age)) + 0.12 * age;
        const double tail = head - 0.20 * std::exp(-7 * age) - 0.035;
        const double along = x * std::cos(angle) + y * std::sin(angle);
        const double aside = std::fabs(-x * std::sin(angle) + y * std::cos(angle));
        if (along > tail && along < head && aside < 0.02)
            result = {fireColour(1 - 0.62 * age / life), 1};
    }
    return result;
}

Pixel shineAt(double r, double t)
{
    const double size = 0.34 + 6.0 * t;
    const double core = smooth(size, size * 0.6, r) * smooth(0.15, 0.05, t);
    return {mix(hex(0xFFE27A), hex(0xFFFDF0), core), core};
}

/// The front of the blast: a thin ring that runs ahead of the fire and breaks up.
Pixel ringAt(double x, double y, double t)
{
    const double r = std::sqrt(x * x + y * y);
    const double at = 0.40 + 0.60 * (1 - std::exp(-13 * t));
    const double gaps = smooth(0.04, 0.24, t) * (0.62 + 0.6 * noise({x * 5, y * 5, 1.5}));
    const double line =
        smooth(0.034, 0.012, std::fabs(r - at)) * (t > 0.04 && t < 0.30 ? std::max(0.0, 1 - gaps) : 0);
    return {mix(hex(0xFFE27A), hex(0xD9401E), smooth(0.04, 0.28, t)), line};
}

void renderFrame(const std::vector<Puff> &puffs, int frame, const std::string &path)
{
    const double t = (frame + 0.35) / kFrames;
    const std::vector<Ball> balls = ballsAt(puffs, t);
    constexpr int kSide = kSize * kSamples;
    Grid<Bytes<4>> picture(kSide, kSide);
    for (int j = 0; j < kSide; ++j)
        for (int i = 0; i < kSide; ++i) {
            const double x = ((i + 0.5) / kSamples - kSize / 2) / kReach,
                         y = (kSize / 2 - (j + 0.5) / kSamples) / kReach;
            Pixel p = x * x + y * y < 1.25 ? march(balls, x, y, t) : Pixel{};
            p = over(shineAt(std::sqrt(x * x + y * y), t), over(p, over(sparkAt(x, y, t), ringAt(x, y, t))));
            picture.at(i, j) = withAlpha(bytesOf(toSrgb(p.colour)), byteOf(p.alpha));
        }
    writePng(path, picture);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        fail("usage: explosion FOLDER");
    const std::vector<Puff> puffs = makePuffs();
    for (int frame = 0; frame < kFrames; ++frame) {
        char name[32];
        std::snprintf(name, sizeof name, "/explosion%02d.png", frame + 1);
        renderFrame(puffs, frame, argv[1] + std::string(name));
    }
}
