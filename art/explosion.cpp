// Renders the blast: a cloud of burning puffs that bursts, rolls up, breaks and thins out, marched through ray by ray.
#include "picture.h"

using namespace art;

namespace
{

constexpr int kFrames = 20;
constexpr int kSize = 64;   // pixels of the finished frame, the blast fills a radius of 28
constexpr int kSamples = 4; // samples a pixel and direction
constexpr double kReach = 28;

struct Puff
{
    Vec way;
    double speed, size, birth, heat;
};

std::vector<Puff> makePuffs()
{
    std::vector<Puff> puffs;
    for (std::uint32_t i = 0; i < 46; ++i)
    {
        const double z = 2 * chance(i, 1) - 1, a = 6.2831853 * chance(i, 2), r = std::sqrt(1 - z * z);
        const double far = std::pow(chance(i, 3), 0.6);
        puffs.push_back({{r * std::cos(a), r * std::sin(a), z}, far, 0.22 + 0.20 * chance(i, 4), 0.05 * chance(i, 5),
                         0.75 + 0.5 * chance(i, 6)});
    }
    return puffs;
}

struct Ball
{
    Vec middle;
    double radius, heat, thick;
};

/// Where the puffs are at time `t` (0 to 1), in units of the blast's reach.
std::vector<Ball> ballsAt(const std::vector<Puff> &puffs, double t)
{
    std::vector<Ball> balls;
    for (const Puff &p : puffs)
    {
        const double age = t - p.birth;
        if (age <= 0)
            continue;
        const double spread = 1 - std::exp(-7.5 * age);
        const double out = 0.74 * p.speed * spread + 0.05 * age;
        const double grow = p.size * (0.45 + 0.75 * spread) * (1 + 0.25 * age);
        const double life = 0.55 + 0.5 * (1 - p.speed) * p.heat;
        const double thick = smooth(1.05, 0.45, age / (life + 0.25));
        balls.push_back({p.way * out + Vec{0, 0.05 * age, 0}, grow * (0.55 + 0.45 * thick),
                         p.heat * std::exp(-4.6 * age * (0.8 + 0.6 * p.speed)), thick});
    }
    return balls;
}

Vec fireColour(double heat)
{
    static const std::pair<double, std::uint32_t> kRamp[] = {{0.00, 0x2A2624}, {0.12, 0x4A332A}, {0.22, 0x7A2A18},
                                                             {0.36, 0xD9401E}, {0.54, 0xFF9A2E}, {0.74, 0xFFE27A},
                                                             {0.95, 0xFFFDF0}};
    for (std::size_t i = 1; i < std::size(kRamp); ++i)
        if (heat < kRamp[i].first)
            return mix(hex(kRamp[i - 1].second), hex(kRamp[i].second),
                       clamp01((heat - kRamp[i - 1].first) / (kRamp[i].first - kRamp[i - 1].first)));
    return hex(0xFFFDF0);
}

struct Sample
{
    double density = 0, heat = 0;
};

Sample sampleAt(const std::vector<Ball> &balls, Vec p, double t)
{
    double field = 0, heat = 0, thick = 0;
    for (const Ball &b : balls)
    {
        const Vec d = p - b.middle;
        const double q = dot(d, d) / (b.radius * b.radius);
        if (q >= 1)
            continue;
        const double w = (1 - q) * (1 - q);
        field += w;
        heat += w * b.heat;
        thick += w * b.thick;
    }
    if (field <= 0)
        return {};
    heat /= field;
    thick /= field;
    const Vec drift{0, -1.1 * t, 0.6 * t};
    const double rough = fractal(p * 3.6 + drift, 4);
    const double density = smooth(0.0, 0.5, field * 1.5 - 0.34 - (1 - thick) * 0.95 + 0.62 * rough);
    return {density, clamp01(heat * (1.0 + 0.75 * rough) + 0.10 * std::min(1.0, field) * std::exp(-6 * t))};
}

Pixel march(const std::vector<Ball> &balls, double x, double y, double t)
{
    const Vec sun = unit({-0.6, 0.65, -0.45});
    constexpr int kSteps = 44;
    Vec colour;
    double through = 1;
    for (int i = 0; i < kSteps && through > 0.02; ++i)
    {
        const Vec p{x, y, -1.15 + 2.3 * (i + 0.5) / kSteps};
        const Sample s = sampleAt(balls, p, t);
        if (s.density <= 0)
            continue;
        const double shade = sampleAt(balls, p + sun * 0.14, t).density;
        const double lit = s.heat > 0.5 ? 1 : mix(mix(1.5, 0.45, shade), 1.0, s.heat * 2);
        const double block = 1 - std::exp(-s.density * 9.5 * 2.3 / kSteps * 2.2);
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
        return {{}, 0};
    return {(top.colour * top.alpha + below.colour * (below.alpha * (1 - top.alpha))) * (1 / alpha), alpha};
}

struct Spark
{
    double angle, speed, life;
};

/// A spark is a short streak that flies outwards, slows down and dies.
Pixel sparkAt(double x, double y, double t)
{
    Pixel result{{}, 0};
    for (std::uint32_t i = 0; i < 26; ++i)
    {
        const Spark s{6.2831853 * (i + 0.8 * chance(i, 21)) / 26, 0.62 + 0.40 * chance(i, 22), 0.35 + 0.45 * chance(i, 23)};
        const double age = t - 0.04;
        if (age <= 0 || age > s.life)
            continue;
        const double head = s.speed * (1 - std::exp(-5.5 * age)), tail = head - 0.16 * std::exp(-5 * age) - 0.02;
        const double along = x * std::cos(s.angle) + y * std::sin(s.angle);
        const double aside = std::fabs(-x * std::sin(s.angle) + y * std::cos(s.angle));
        if (along > tail && along < head && aside < 0.022)
            result = {fireColour(1 - 0.7 * age / s.life), 1};
    }
    return result;
}

Pixel flashAt(double x, double y, double t)
{
    const double r = std::sqrt(x * x + y * y);
    const double size = 0.30 + 5.5 * t;
    const double fade = smooth(0.17, 0.03, t);
    const double core = smooth(size, size * 0.55, r) * fade;
    const double ringAt = 0.35 + 0.66 * (1 - std::exp(-9 * t));
    const double ring = smooth(0.075, 0.0, std::fabs(r - ringAt)) * smooth(0.34, 0.06, t) * (t > 0.04 ? 0.9 : 0);
    const Pixel shine{mix(hex(0xFFE27A), hex(0xFFFDF0), core), core};
    return over(shine, {hex(0xFFD48A), ring});
}

std::uint8_t byteOf(double v) { return static_cast<std::uint8_t>(std::lround(255 * clamp01(v))); }

void renderFrame(const std::vector<Puff> &puffs, int frame, const std::string &path)
{
    const double t = (frame + 0.35) / kFrames;
    const std::vector<Ball> balls = ballsAt(puffs, t);
    constexpr int kSide = kSize * kSamples;
    std::vector<std::uint8_t> bytes;
    for (int j = 0; j < kSide; ++j)
        for (int i = 0; i < kSide; ++i)
        {
            const double x = ((i + 0.5) / kSamples - kSize / 2) / kReach, y = (kSize / 2 - (j + 0.5) / kSamples) / kReach;
            Pixel p = x * x + y * y < 1.25 ? march(balls, x, y, t) : Pixel{{}, 0};
            p = over(sparkAt(x, y, t), over(flashAt(x, y, t), p));
            for (double v : {p.colour.x, p.colour.y, p.colour.z})
                bytes.push_back(byteOf(toSrgb(v)));
            bytes.push_back(byteOf(p.alpha));
        }
    writePng(path, kSide, kSide, 4, bytes);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        fail("usage: explosion FOLDER");
    const std::vector<Puff> puffs = makePuffs();
    for (int frame = 0; frame < kFrames; ++frame)
    {
        char name[32];
        std::snprintf(name, sizeof name, "/explosion%02d.png", frame + 1);
        renderFrame(puffs, frame, argv[1] + std::string(name));
    }
}
