/// Drawing and presenting beside the same work done by SDL2 and beside a raw copy of the screen.
///
///     build/release/bin/blit_bench --benchmark_repetitions=9 --benchmark_report_aggregates_only
///
/// The machine may be busy: compare medians within one run.
#include <algorithm>
#include <cstring>
#include <functional>
#include <random>

#include <SDL.h>
#include <benchmark/benchmark.h>

#include "graphics/surface.h"
#include "platform/virtual/virtual_device.h"
#include "shell/display.h"

namespace
{

using mygame::kMagenta;
using mygame::Pixel;
using mygame::Surface;

constexpr int kScreenWidth = 240;
constexpr int kScreenHeight = 320;
constexpr std::size_t kScreenBytes = std::size_t{kScreenWidth} * kScreenHeight * sizeof(Pixel);

/// Says whether a pixel of a picture is drawn or has the key colour.
using Shape = std::function<bool(int x, int y)>;

/// A picture to draw, in both forms.
struct Picture {
    Picture(int width, int height, const Shape &isDrawn) : width(width), height(height)
    {
        surface.create(width, height);
        for (int i = 0; i < surface.pixelCount(); ++i)
            surface.pixels()[i] = isDrawn(i % width, i / width) ? static_cast<Pixel>(i % 60000) : kMagenta;
    }

    int width, height;
    Surface surface;
};

Picture glyph()
{
    constexpr const char *kLetter = "  XXXX  "
                                    " XX  XX "
                                    "XX    XX"
                                    "XX    XX"
                                    "XX    XX"
                                    "XXXXXXXX"
                                    "XX    XX"
                                    "XX    XX"
                                    "XX    XX"
                                    "        ";
    return {8, 10, [](int x, int y) { return kLetter[x + y * 8] != ' '; }};
}

Picture disc(int side)
{
    return {side, side, [side](int x, int y) {
                const int dx = 2 * x + 1 - side, dy = 2 * y + 1 - side;
                return dx * dx + dy * dy < side * side;
            }};
}

/// Taller than the screen, so that each blit shows another part and no processor learns the mask by heart.
Picture randomMask()
{
    std::mt19937 random(1);
    return {kScreenWidth, 4 * kScreenHeight, [&random](int, int) { return random() % 2 == 0; }};
}

Picture whole()
{
    return {kScreenWidth, kScreenHeight, [](int, int) { return true; }};
}

/// Where a picture goes: all over the screen, as in the game, so that its rows are not always aligned alike.
class Places
{
public:
    explicit Places(const Picture &picture)
    {
        std::mt19937 random(1);
        for (SDL_Point &place : places_) {
            place.x = between(0, kScreenWidth - picture.width, random);
            place.y = between(0, kScreenHeight - picture.height, random);
        }
    }

    const SDL_Point &next() { return places_[turn_++ % kCount]; }

private:
    static int between(int a, int b, std::mt19937 &random)
    {
        return std::uniform_int_distribution(std::min(a, b), std::max(a, b))(random);
    }

    static constexpr unsigned kCount = 64;
    SDL_Point places_[kCount];
    unsigned turn_ = 0;
};

Surface ourScreen()
{
    Surface screen;
    screen.create(kScreenWidth, kScreenHeight);
    return screen;
}

SDL_Surface *theirSurface(int width, int height)
{
    return SDL_CreateRGBSurfaceWithFormat(0, width, height, 16, SDL_PIXELFORMAT_RGB565);
}

/// How a picture is copied: all of it, or what is not the key, found pixel by pixel or beforehand.
enum class Copying { Whole, Keyed, KeyedRunLengths };

void blitOurs(benchmark::State &state, Picture picture, Copying copying)
{
    Surface screen = ourScreen();
    if (copying != Copying::Whole)
        picture.surface.setColourKey(kMagenta);
    Places places(picture);
    for (auto _ : state) {
        const SDL_Point &place = places.next();
        picture.surface.blitTo(screen, place.x, place.y);
        benchmark::ClobberMemory();
    }
}

void blitTheirs(benchmark::State &state, const Picture &picture, Copying copying)
{
    SDL_Surface *screen = theirSurface(kScreenWidth, kScreenHeight);
    SDL_Surface *source = theirSurface(picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(static_cast<char *>(source->pixels) + y * source->pitch,
                    picture.surface.pixels() + y * picture.width,
                    static_cast<std::size_t>(picture.width) * sizeof(Pixel));
    SDL_SetSurfaceBlendMode(source, SDL_BLENDMODE_NONE);
    if (copying != Copying::Whole)
        SDL_SetColorKey(source, SDL_TRUE, kMagenta);
    if (copying == Copying::KeyedRunLengths)
        SDL_SetSurfaceRLE(source, 1);
    Places places(picture);
    for (auto _ : state) {
        const SDL_Point &place = places.next();
        SDL_Rect at{place.x, place.y, 0, 0};
        SDL_BlitSurface(source, nullptr, screen, &at);
        benchmark::ClobberMemory();
    }
    SDL_FreeSurface(source);
    SDL_FreeSurface(screen);
}

void fillOurs(benchmark::State &state)
{
    Surface screen = ourScreen();
    for (auto _ : state) {
        screen.fill(kMagenta);
        benchmark::ClobberMemory();
    }
}

void fillTheirs(benchmark::State &state)
{
    SDL_Surface *screen = theirSurface(kScreenWidth, kScreenHeight);
    for (auto _ : state) {
        SDL_FillRect(screen, nullptr, kMagenta);
        benchmark::ClobberMemory();
    }
    SDL_FreeSurface(screen);
}

/// A frame presented by the display, or the same memory copied raw.
void present(benchmark::State &state, bool raw)
{
    platform::VirtualDevice device;
    platform::useDevice(device);
    mygame::Display display(nullptr);
    const Surface &picture = display.backBuffer();
    for (auto _ : state) {
        if (raw)
            std::memcpy(device.topLeft(), picture.pixels(), kScreenBytes);
        else if (display.beginDraw())
            display.endDraw();
        benchmark::ClobberMemory();
    }
}

void addKeyed(const std::string &name, const Picture &picture)
{
    benchmark::RegisterBenchmark((name + "/ours").c_str(), blitOurs, picture, Copying::Keyed);
    benchmark::RegisterBenchmark((name + "/SDL2").c_str(), blitTheirs, picture, Copying::Keyed);
    benchmark::RegisterBenchmark((name + "/SDL2_RLE").c_str(), blitTheirs, picture, Copying::KeyedRunLengths);
}

} // namespace

int main(int count, char **arguments)
{
    addKeyed("glyph_8x10", glyph());
    addKeyed("disc_16x16", disc(16));
    addKeyed("disc_32x32", disc(32));
    addKeyed("disc_64x64", disc(64));
    addKeyed("mask_240x320", randomMask());
    benchmark::RegisterBenchmark("copy_240x320/ours", blitOurs, whole(), Copying::Whole);
    benchmark::RegisterBenchmark("copy_240x320/SDL2", blitTheirs, whole(), Copying::Whole);
    benchmark::RegisterBenchmark("copy_240x320/SDL2_keyed", blitTheirs, whole(), Copying::Keyed);
    benchmark::RegisterBenchmark("fill_240x320/ours", fillOurs);
    benchmark::RegisterBenchmark("fill_240x320/SDL2", fillTheirs);
    benchmark::RegisterBenchmark("present_240x320/ours", present, false);
    benchmark::RegisterBenchmark("present_240x320/raw_copy", present, true);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
