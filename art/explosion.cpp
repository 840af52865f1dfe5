// Renders the blast: a cloud of burning puffs that bursts, cools from the outside in, breaks and thins out to
// smoke, marched through ray by ray and reduced to a few colours; embers, splinters and the glow around it
// are set pixel by pixel.
#include <cstdio>
#include <limits>
#include <string>
#include <utility>

#include "art/noise.h"
#include "art/picture.h"

using namespace art;

namespace
{

constexpr int kFrames = 20;
constexpr int kSize = 64;     // pixels of the finished frame
constexpr int kSamples = 4;   // samples a pixel and direction
constexpr double kReach = 27; // pixels that make one unit of length: the cloud's radius
constexpr double kTurn = 6.2831853;

struct Puff {
    Vec way;
    double far, size, birth;
};

/// Evenly spread directions, `i` of `count`.
Vec spread(int i, int count, double twist)
{
    const double z = 1 - 2 * (i + 0.5) / count, a = 2.39996 * i + twist, r = std::sqrt(1 - z * z);
    return {r * std::cos(a), z, r * std::sin(a)};
}

/// A heart that burns at once, a shell that flies out, and stragglers that burst through it later, so that
/// the outline changes all the time.
std::vector<Puff> makePuffs()
{
    constexpr int kHeart = 12, kShell = 26, kLate = 12;
    std::vector<Puff> puffs;
    const auto add = [&](int i, int count, std::uint32_t seed, double wild, double far, double size,
                         double birth) {
        const std::uint32_t n = seed + static_cast<std::uint32_t>(i);
        const Vec stray{chance(n, 1) - 0.5, chance(n, 2) - 0.5, chance(n, 3) - 0.5};
        puffs.push_back({unit(spread(i, count, seed) + stray * wild), far * (0.7 + 0.6 * chance(n, 4)),
                         size * (0.7 + 0.6 * chance(n, 5)), birth * chance(n, 6)});
    };
    for (int i = 0; i < kHeart; ++i)
        add(i, kHeart, 100, 0.5, 0.24, 0.34, 0.0);
    for (int i = 0; i < kShell; ++i)
        add(i, kShell, 200, 0.8, 0.62, 0.27, 0.03);
    for (int i = 0; i < kLate; ++i)
        add(i, kLate, 300, 1.2, 0.74, 0.25, 0.26);
    return puffs;
}

struct Ball {
    Vec middle;
    double radius;
};

/// Where the puffs are at time `t` (0 to 1), in units of the blast's reach.
std::vector<Ball> ballsAt(const std::vector<Puff> &puffs, double t)
{
    std::vector<Ball> balls;
    for (const Puff &p : puffs) {
        const double age = t - p.birth;
        if (age <= 0)
            continue;
        const double burst = 1 - std::exp(-15 * age);
        const Vec drift{0.05 * age, 0.09 * age * age, 0};
        balls.push_back({p.way * (p.far * burst + 0.17 * age) + drift, p.size * (0.45 + 0.75 * burst)});
    }
    return balls;
}

Vec along(const std::vector<std::pair<double, Vec>> &ramp, double at)
{
    for (std::size_t i = 1; i < ramp.size(); ++i)
        if (at < ramp[i].first)
            return mix(ramp[i - 1].second, ramp[i].second,
                       clamp01((at - ramp[i - 1].first) / (ramp[i].first - ramp[i - 1].first)));
    return ramp.back().second;
}

Vec fireColour(double heat)
{
    static const std::vector<std::pair<double, Vec>> kRamp = {
        {0.10, hex(0x3A2026)}, {0.20, hex(0x74201A)}, {0.32, hex(0xB8341A)}, {0.45, hex(0xEE6420)},
        {0.60, hex(0xFFA434)}, {0.74, hex(0xFFD860)}, {0.86, hex(0xFFF4B4)}, {0.96, hex(0xFFFFF4)}};
    return along(kRamp, heat);
}

Vec smokeColour(double light)
{
    static const std::vector<std::pair<double, Vec>> kRamp = {
        {0.0, hex(0x212029)}, {0.3, hex(0x3C3A44)}, {0.6, hex(0x5C5A64)}, {1.0, hex(0x918E98)}};
    return along(kRamp, light);
}

/// The only colours of the finished blast: few enough that its shapes read.
const std::uint32_t kPalette[] = {0xFFFFF4, 0xFFF4B4, 0xFFD860, 0xFFB040, 0xFF8A28, 0xEE6420,
                                  0xC8401A, 0x9A2A1A, 0x6A201C, 0x402024, 0x212029, 0x313039,
                                  0x4A4952, 0x63616B, 0x84828C, 0xA5A2AD};

Vec inPalette(Vec colour)
{
    const Vec wanted = toSrgb(colour);
    double best = std::numeric_limits<double>::max();
    Vec nearest;
    for (const std::uint32_t candidate : kPalette) {
        const Vec c = screenHex<double>(candidate), d = c - wanted;
        const double off = dot(d, {2 * d.x, 4 * d.y, 2 * d.z});
        if (off < best) {
            best = off;
            nearest = c;
        }
    }
    return toLinear(nearest);
}

struct Sample {
    double density = 0, heat = 0;
};

Sample sampleAt(const std::vector<Ball> &balls, const Vec &p, double t)
{
    double field = 0;
    for (const Ball &b : balls) {
        const Vec d = p - b.middle;
        const double q = dot(d, d) / (b.radius * b.radius);
        if (q < 1)
            field += (1 - q) * (1 - q);
    }
    if (field <= 0)
        return {};
    // The pattern is carried outwards with the cloud, so that it opens up instead of standing still.
    const Vec q = p * (1 / (0.40 + 0.62 * (1 - std::exp(-7 * t)) + 0.16 * t));
    const double rough = fractal(q * 3.2 + Vec{14.9, 5.5 - 1.6 * t, 1.3 + 2.4 * t}, 4);
    const double wear =
        0.20 + 0.42 * smooth(0.12, 0.5, t) + 0.70 * smooth(0.42, 1.0, t) + 0.40 * smooth(0.50, 0.72, t);
    const double body = std::min(field, 1.15) * 1.25 + (0.42 + 0.75 * t) * rough - wear;
    const double density = smooth(0.0, 0.40, body);
    // White in the middle as long as it lasts, cooler towards the rim and in the folds.
    const double core = 0.30 + 0.34 * smooth(0.0, 0.10, t) - 0.54 * smooth(0.10, 0.60, t);
    const double aside = std::sqrt(p.x * p.x + p.y * p.y);
    const double glow = smooth(1.9 * core, 0.25 * core, aside + 0.22 * rough) * smooth(0.66, 0.46, t);
    const double rim = smooth(0.02, 0.55, body);
    const double heat = 0.30 + 0.26 * rim + 0.52 * glow + (0.10 + 0.40 * smooth(0.03, 0.25, t)) * rough -
                        0.16 * smooth(0.08, 0.34, t) - 0.46 * smooth(0.34, 0.70, t) -
                        0.3 * smooth(0.6, 0.85, t);
    return {density, clamp01(heat)};
}

Pixel march(const std::vector<Ball> &balls, double x, double y, double t)
{
    const Vec sun = unit(Vec{-0.6, 0.65, -0.45});
    constexpr int kSteps = 40;
    Vec colour;
    double through = 1;
    for (int i = 0; i < kSteps && through > 0.02; ++i) {
        const Vec p{x, y, -1.15 + 2.3 * (i + 0.5) / kSteps};
        const Sample s = sampleAt(balls, p, t);
        if (s.density <= 0)
            continue;
        const double shade = 0.6 * sampleAt(balls, p + sun * 0.09, t).density +
                             0.4 * sampleAt(balls, p + sun * 0.24, t).density;
        const Vec smoke = smokeColour(clamp01(1.0 - 1.1 * shade) * (0.86 - 0.30 * smooth(0.5, 1.0, t)));
        const Vec own = mix(smoke, fireColour(s.heat), smooth(0.06, 0.16, s.heat));
        const double thick = 60 * (1 - 0.95 * smooth(0.38, 0.90, t));
        const double block = 1 - std::exp(-s.density * thick * 2.3 / kSteps);
        colour = colour + own * (block * through);
        through *= 1 - block;
    }
    const double alpha = 1 - through;
    return {alpha > 0 ? colour * (1 / alpha) : Vec{}, alpha};
}

/// The cloud, reduced to the finished size, with what it covers of every pixel.
Picture cloudAt(const std::vector<Ball> &balls, double t)
{
    Picture picture(kSize, kSize);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            Vec sum;
            double cover = 0;
            for (int k = 0; k < kSamples * kSamples; ++k) {
                const int column = k % kSamples, row = k / kSamples;
                const double sx = x + (column + 0.5) / kSamples, sy = y + (row + 0.5) / kSamples;
                const Pixel p = march(balls, (sx - kSize / 2.0) / kReach, (kSize / 2.0 - sy) / kReach, t);
                sum = sum + p.colour * p.alpha;
                cover += p.alpha;
            }
            picture.at(x, y) = {cover > 0 ? sum * (1 / cover) : Vec{}, cover / (kSamples * kSamples)};
        }
    return picture;
}

/// How much a pixel of the cloud must be covered to be drawn: thinning smoke falls apart into ragged puffs.
double neededCover(int x, int y, double t)
{
    const double puffs =
        noise({x / 5.2, y / 5.2, 2.5 + 1.2 * t}) + 0.5 * noise({x / 2.4, y / 2.4, 8.5 + 2 * t});
    return std::max(0.15, 0.42 + (0.75 * puffs - 0.01) * smooth(0.55, 0.80, t));
}

/// The cloud cut clean in its few colours. Where the smoke thins out, three greys round its puffs: light on
/// the upper left.
Picture cutCloud(const Picture &cloud, double t)
{
    Picture cut(kSize, kSize);
    const auto body = [&](int x, int y) {
        return cloud.contains(x, y) ? cloud.at(x, y).alpha - neededCover(x, y, t) : 0.0;
    };
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            if (body(x, y) <= 0)
                continue;
            Vec colour = inPalette(cloud.at(x, y).colour);
            const bool glows = colour.x > 1.5 * colour.z;
            if (t > 0.70 && !glows) {
                const double towardsSun = body(x + 1, y + 1) - body(x - 1, y - 1);
                colour = hex(towardsSun > 0.16 ? 0x84828C : towardsSun > -0.14 ? 0x63616B : 0x4A4952);
            }
            cut.at(x, y) = {colour, 1};
        }
    return cut;
}

/// Sets a pixel that the cloud does not hide.
void put(Picture &picture, int x, int y, Vec colour)
{
    if (picture.contains(x, y) && picture.at(x, y).alpha <= 0)
        picture.at(x, y) = {colour, 1};
}

/// Thresholds between 0 and 1 that lie far from their like in every direction: a small share is scattered
/// evenly, in no pattern that the eye finds.
double scatter(int x, int y)
{
    const double at = 0.7548776662 * x + 0.5698402910 * y;
    return std::fabs(2 * (at - std::floor(at)) - 1);
}

constexpr int kGlowReach = 8; // pixels

/// Pixels from a place to the nearest that the fire covers, kGlowReach at most.
double awayFrom(const Picture &fire, int x, int y)
{
    double nearest = kGlowReach;
    for (int j = y - kGlowReach; j <= y + kGlowReach; ++j)
        for (int i = x - kGlowReach; i <= x + kGlowReach; ++i)
            if (fire.contains(i, j) && fire.at(i, j).alpha > 0)
                nearest = std::min(nearest, std::hypot(i - x, j - y));
    return nearest;
}

/// The light around the fire, a ragged rim and a few sparks beyond, and the ring that runs ahead of it.
void addGlow(Picture &picture, const Picture &fire, double t)
{
    const double ring = 0.50 + 0.66 * (1 - std::exp(-9 * t));
    const double glowing = smooth(0.42, 0.10, t), ringing = smooth(0.01, 0.05, t) * smooth(0.36, 0.16, t);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const double px = (x + 0.5 - kSize / 2.0) / kReach, py = (kSize / 2.0 - y - 0.5) / kReach;
            const double r = std::sqrt(px * px + py * py);
            if (picture.at(x, y).alpha > 0 || r * kReach > kSize / 2.0 - 0.5)
                continue;
            const double gaps = 0.45 + 1.5 * noise({px / r * 2.7, py / r * 2.7, 3 + 5 * t});
            const double line = ringing * gaps * smooth(0.055, 0.015, std::fabs(r - ring));
            const double away = awayFrom(fire, x, y);
            const double glow = glowing * std::exp(-away / 2.8) * smooth(kGlowReach, 0.5 * kGlowReach, away) *
                                (0.95 + 0.9 * noise({x / 3.1, y / 3.1, 7 + 4 * t}));
            const double at = scatter(x, y);
            if (line > 0.30 + 0.25 * at)
                put(picture, x, y, hex(t < 0.12 ? 0xFFD860 : t < 0.22 ? 0xFF8A28 : 0xC8401A));
            else if (glow > 0.46)
                put(picture, x, y, hex(glow > 0.66 ? 0xC8401A : 0x9A2A1A));
            else if (0.75 * glow > at)
                put(picture, x, y, hex(0x6A201C));
        }
}

/// How far from the middle something is that was flung out at a speed and is braked.
double flung(double speed, double age) { return 0.25 + speed * (1 - std::exp(-5.0 * age)) + 0.2 * age; }

/// Embers: single pixels, the fast ones with a tail, that cool from white to red and go out.
void addEmbers(Picture &picture, double t)
{
    constexpr std::uint32_t kEmbers = 52;
    for (std::uint32_t i = 0; i < kEmbers; ++i) {
        const double angle = kTurn * (i + 0.9 * chance(i, 21)) / kEmbers, life = 0.35 + 0.55 * chance(i, 23);
        const double age = t - 0.02 - 0.10 * chance(i, 24);
        if (age <= 0 || age > life)
            continue;
        const double speed = 0.62 + 0.72 * chance(i, 22), heat = 1.02 - 0.8 * age / life;
        for (const double behind : {0.035, 0.0}) {
            if (behind > 0 && (age > 0.22 || i % 3 == 0))
                continue;
            const double r = flung(speed, age - std::min(age, behind));
            const double x = kSize / 2.0 + r * kReach * std::cos(angle);
            const double y = kSize / 2.0 + r * kReach * std::sin(angle) + 7 * age * age;
            put(picture, static_cast<int>(x), static_cast<int>(y), inPalette(fireColour(heat - 6 * behind)));
        }
    }
}

/// Splinters of rock: two or three pixels across, lit from the upper left, red-hot at first.
void addSplinters(Picture &picture, double t)
{
    constexpr std::uint32_t kSplinters = 11;
    for (std::uint32_t i = 0; i < kSplinters; ++i) {
        const double angle = kTurn * (i + 0.8 * chance(i, 41)) / kSplinters,
                     life = 0.50 + 0.38 * chance(i, 43);
        const double age = t - 0.04;
        if (age <= 0 || age > life)
            continue;
        const double r = flung(0.60 + 0.62 * chance(i, 42), age);
        const int x = static_cast<int>(kSize / 2.0 + r * kReach * std::cos(angle));
        const int y = static_cast<int>(kSize / 2.0 + r * kReach * std::sin(angle) + 9 * age * age);
        const bool hot = age < 0.20;
        const std::uint32_t light = hot ? 0xFFB040 : 0xA5A2AD, dark = hot ? 0x9A2A1A : 0x4A4952;
        const auto turn = static_cast<int>(age * 14 + 4 * chance(i, 44)) % 3;
        const bool last = age > life - 0.12;
        put(picture, x, y, hex(last ? dark : light));
        if (last)
            continue;
        put(picture, x + 1, y, hex(turn == 0 ? light : dark));
        put(picture, x, y + 1, hex(turn == 1 ? light : dark));
        put(picture, x + 1, y + 1, hex(dark));
        if (turn == 2)
            put(picture, x + 2, y + 1, hex(dark));
    }
}

void renderFrame(const std::vector<Puff> &puffs, int frame, const std::string &path)
{
    const double t = (frame + 0.35) / kFrames;
    const Picture fire = cutCloud(cloudAt(ballsAt(puffs, t), t), t);
    Picture picture = fire;
    addSplinters(picture, t);
    addEmbers(picture, t);
    addGlow(picture, fire, t);
    writePng(path, mapped(picture, [](const Pixel &p) {
                 return withAlpha(bytesOf(toSrgb(p.colour)), byteOf(p.alpha));
             }));
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
