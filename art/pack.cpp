// Makes the game's pictures from the renderings: reduces them in linear light, puts the night sky behind the
// scenes, fits everything to the 16-bit screen and cuts the keyed pictures clean.
#include <cstdio>
#include <cstring>

#include <jpeglib.h>

#include "art/noise.h"
#include "art/picture.h"

using namespace art;

namespace
{

using Rgb = Bytes<3>;
using Sheet = Grid<Rgb>;

// The keys: pixels of these colours are left out when a picture is drawn.
constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kMagenta{255, 0, 255};

Picture readPicture(const std::string &path)
{
    Picture picture = readPixels<double>(path);
    for (Pixel &pixel : picture.pixels)
        pixel.colour = toLinear(pixel.colour);
    return picture;
}

/// Averages blocks of pixels; colours count as much as they cover.
Picture reduced(const Picture &large, int width, int height)
{
    const int kx = large.width / width, ky = large.height / height;
    if (kx * width != large.width || ky * height != large.height)
        fail("a rendering is not a whole multiple of its picture");
    Picture small(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            Vec sum;
            double cover = 0;
            for (int j = 0; j < ky; ++j)
                for (int i = 0; i < kx; ++i) {
                    const Pixel &p = large.at(x * kx + i, y * ky + j);
                    sum = sum + p.colour * p.alpha;
                    cover += p.alpha;
                }
            small.at(x, y) = {cover > 0 ? sum * (1 / cover) : Vec{}, cover / (kx * ky)};
        }
    return small;
}

/// Brings out detail: moves every pixel away from the average of its covered neighbours.
void sharpen(Picture &picture, double strength)
{
    const Picture before = picture;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x) {
            Vec sum;
            double weight = 0;
            for (int j = std::max(0, y - 1); j <= std::min(picture.height - 1, y + 1); ++j)
                for (int i = std::max(0, x - 1); i <= std::min(picture.width - 1, x + 1); ++i) {
                    const double w = before.at(i, j).alpha;
                    sum = sum + before.at(i, j).colour * w;
                    weight += w;
                }
            if (weight <= 0)
                continue;
            const Vec c = before.at(x, y).colour + (before.at(x, y).colour - sum * (1 / weight)) * strength;
            picture.at(x, y).colour = {std::max(0.0, c.x), std::max(0.0, c.y), std::max(0.0, c.z)};
        }
}

/// The nearest value that the 16-bit screen can show, as the byte that packs to it.
std::uint8_t screenByte(double linear, int bits)
{
    const int most = (1 << bits) - 1;
    const auto level = static_cast<int>(std::floor(toSrgb(linear) * most + 0.5));
    return static_cast<std::uint8_t>(bits == 5 ? level << 3 | level >> 2 : level << 2 | level >> 4);
}

Rgb screenColour(Vec c) { return {screenByte(c.x, 5), screenByte(c.y, 6), screenByte(c.z, 5)}; }

/// An object's pixel must never be the key, black: its darkest shade is a night blue.
Rgb solid(Rgb c) { return c[0] < 8 && c[1] < 8 && c[2] < 16 ? Rgb{8, 8, 16} : c; }

/// The picture on the key black.
Sheet cutOut(const Picture &picture)
{
    return mapped(picture,
                  [](const Pixel &p) { return p.alpha >= 0.5 ? solid(screenColour(p.colour)) : kBlack; });
}

/// A dark line around what is not black, so that it stands out from anything behind it.
Sheet outlined(const Sheet &sheet)
{
    constexpr Rgb kOutline{8, 12, 24};
    Sheet result = sheet;
    for (int y = 0; y < sheet.height; ++y)
        for (int x = 0; x < sheet.width; ++x)
            for (const auto &[dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
                if (sheet.at(x, y) == kBlack && sheet.contains(x + dx, y + dy) &&
                    sheet.at(x + dx, y + dy) != kBlack)
                    result.at(x, y) = kOutline;
    return result;
}

/// A rendering in shades of grey, painted in a few colours from dark to bright; what lies between two of them
/// is shared out by a pattern, a little.
Sheet painted(const std::string &in, int width, int height, const std::vector<Vec> &colours)
{
    constexpr double kMix = 0.35;
    Picture picture = reduced(readPicture(in), width, height);
    Sheet sheet(width, height, kBlack);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const Pixel &p = picture.at(x, y);
            if (p.alpha < 0.5)
                continue;
            const double light = toSrgb(dot(p.colour, {0.3, 0.6, 0.1}));
            const double shift = kMix * (threshold(x, y) - 0.5);
            const auto last = static_cast<int>(colours.size()) - 1;
            const int level = std::clamp(static_cast<int>(light * (last + 1) + shift), 0, last);
            sheet.at(x, y) = solid(screenColour(colours[static_cast<std::size_t>(level)]));
        }
    return sheet;
}

Sheet blastFrame(const std::string &in)
{
    return mapped(readPicture(in),
                  [](const Pixel &p) { return p.alpha >= 0.5 ? screenColour(p.colour) : kMagenta; });
}

/// Empty rows to be cut off above and below a frame: as many on both sides, so that its centre stays where it
/// was. At least two rows remain.
int emptyMargin(const Sheet &frame, Rgb key)
{
    const auto isEmpty = [&](int y) {
        const auto row = frame.pixels.begin() + static_cast<long>(y) * frame.width;
        return std::all_of(row, row + frame.width, [&](const Rgb &pixel) { return pixel == key; });
    };
    int margin = 0;
    while (2 * margin + 2 < frame.height && isEmpty(margin) && isEmpty(frame.height - 1 - margin))
        ++margin;
    return margin;
}

// The marker column's colours: rows of a frame, and the row between two frames.
constexpr Rgb kMarker{255, 255, 255};
constexpr Rgb kBetween{255, 0, 0};

/// Stacks frames of one width without their empty rows: the game has less to draw.
void writeStrip(const std::string &out, const std::vector<Sheet> &frames, Rgb key)
{
    const int width = frames.at(0).width;
    Sheet strip;
    strip.width = 1 + width;
    const auto addRow = [&](Rgb marker, const Rgb *row) {
        strip.pixels.push_back(marker);
        strip.pixels.insert(strip.pixels.end(), row, row + width);
        ++strip.height;
    };
    const std::vector<Rgb> nothing(static_cast<std::size_t>(width), key);
    for (const Sheet &frame : frames) {
        if (strip.height > 0)
            addRow(kBetween, nothing.data());
        const int margin = emptyMargin(frame, key);
        for (int y = margin; y < frame.height - margin; ++y)
            addRow(kMarker, &frame.at(0, y));
    }
    writePng(out, strip);
}

using Files = std::vector<std::string>;

/// One frame for each file.
template <class MakeFrame>
void packStrip(const std::string &out, const Files &in, Rgb key, MakeFrame makeFrame)
{
    std::vector<Sheet> frames;
    for (const std::string &file : in)
        frames.push_back(makeFrame(file));
    writeStrip(out, frames, key);
}

/// "3A2C28,5C443A": colours from dark to bright.
std::vector<Vec> parseColours(const std::string &list)
{
    std::vector<Vec> colours;
    for (std::size_t at = 0; at < list.size(); at += 7)
        colours.push_back(hex(static_cast<std::uint32_t>(std::stoul(list.substr(at, 6), nullptr, 16))));
    return colours;
}

/// The night sky at a pixel: near black, a breath of indigo and teal along a slanting band.
Vec skyAt(double x, double y, double nebula, std::uint32_t seed)
{
    const Vec c = mix(hex(0x03050C), hex(0x060A18), clamp01(y / 320));
    const Vec p{x / 80, y / 80, 4.2 + 5.3 * (seed % 64)};
    const Vec stir{fractal(p * 1.3, 4), fractal(p * 1.3 + Vec{7, 3, 1}, 4), 0};
    const Vec q = p + stir * 0.38;
    const double off = (y - 100 - 0.5 * (x - 120)) / 75 + 0.5 * stir.x;
    const double band = std::exp(-off * off);
    const double veil = std::pow(clamp01(0.48 + 0.75 * fractal(q * 1.5, 6)), 2.2);
    const double lane = smooth(0.42, 0.70, ridged(q * 1.4 + Vec{1, 6, 3}, 5));
    const double teal = smooth(0.35, 1.0, 0.5 + 0.8 * fractal(q * 1.1 + Vec{5, 2, 8}, 5));
    const Vec glow = mix(hex(0x2A2C66), hex(0x12505F), teal) * veil + hex(0x141738) * 0.5;
    return c + glow * (nebula * band * (1 - 0.75 * lane));
}

/// A part of the screen where texts stand: a bright star beside a letter reads as a dot or a comma.
struct Box {
    int left = 0, top = 0, right = -1, bottom = -1;

    bool contains(int x, int y) const { return x >= left && x <= right && y >= top && y <= bottom; }
};

void addStars(Picture &sky, std::uint32_t seed, int count, const Box &quiet)
{
    constexpr double kBrightestInQuiet = 0.06;
    for (int i = 0; i < count; ++i) {
        const auto n = static_cast<std::uint32_t>(i);
        const int x = static_cast<int>(chance(seed, n, 1) * sky.width),
                  y = static_cast<int>(chance(seed, n, 2) * sky.height);
        const double own = 0.02 + 0.75 * std::pow(chance(seed, n, 3), 8);
        const double bright = quiet.contains(x, y) ? std::min(own, kBrightestInQuiet) : own;
        const double warmth = chance(seed, n, 4);
        const Vec tint = warmth < 0.3 ? hex(0xAFC8FF) : warmth > 0.85 ? hex(0xFFD9B0) : hex(0xF0F4FF);
        const auto add = [&](int px, int py, double k) {
            if (sky.contains(px, py))
                sky.at(px, py).colour = sky.at(px, py).colour + tint * (bright * k);
        };
        add(x, y, 1);
        if (bright > 0.5)
            for (const auto &[dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
                add(x + dx, y + dy, 0.16);
    }
}

constexpr int kQuality = 96;

void writeJpeg(const std::string &path, const Sheet &sheet, int quality)
{
    std::FILE *file = std::fopen(path.c_str(), "wb");
    if (!file)
        fail("cannot write " + path);
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    jpeg_stdio_dest(&jpeg, file);
    jpeg.image_width = static_cast<JDIMENSION>(sheet.width);
    jpeg.image_height = static_cast<JDIMENSION>(sheet.height);
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, quality, TRUE);
    for (int i = 0; i < 3; ++i)
        jpeg.comp_info[i].h_samp_factor = jpeg.comp_info[i].v_samp_factor = 1;
    jpeg.dct_method = JDCT_ISLOW;
    jpeg.optimize_coding = TRUE;
    jpeg_start_compress(&jpeg, TRUE);
    std::vector<JSAMPLE> row(static_cast<std::size_t>(sheet.width) * 3);
    for (int y = 0; y < sheet.height; ++y) {
        std::memcpy(row.data(), &sheet.pixels[static_cast<std::size_t>(y) * sheet.width], row.size());
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&jpeg, rows, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    std::fclose(file);
}

/// Fits a picture to the screen's 5, 6 and 5 bits. What a pixel loses its neighbours get, so that slow
/// gradients do not fall into bands; every byte lies in the middle of its step, so that compression does not
/// push it over the edge.
Sheet fitted(const Picture &picture)
{
    const int w = picture.width;
    Sheet sheet(w, picture.height);
    std::array<std::vector<double>, 3> owed, next;
    for (int c = 0; c < 3; ++c)
        owed[c].assign(static_cast<std::size_t>(w) + 2, 0), next[c] = owed[c];
    for (int y = 0; y < picture.height; ++y) {
        const int forward = y % 2 ? -1 : 1;
        for (int n = 0; n < w; ++n) {
            const int x = forward > 0 ? n : w - 1 - n;
            const Vec colour = toSrgb(picture.at(x, y).colour);
            const double wanted[3] = {colour.x, colour.y, colour.z};
            for (int c = 0; c < 3; ++c) {
                const int step = c == 1 ? 4 : 8;
                const double jitter =
                    0.35 * (chance(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), 9) - 0.5);
                const double v = wanted[c] * 255 / step + owed[c][x + 1];
                const int level =
                    std::clamp(static_cast<int>(std::floor(v + 0.5 + jitter)), 0, 256 / step - 1);
                const double error = std::clamp(v - level, -1.0, 1.0);
                owed[c][x + 1 + forward] += error * 7 / 16;
                next[c][x + 1 - forward] += error * 3 / 16;
                next[c][x + 1] += error * 5 / 16;
                next[c][x + 1 + forward] += error * 1 / 16;
                sheet.at(x, y)[c] = static_cast<std::uint8_t>(level * step + step / 2);
            }
        }
        for (int c = 0; c < 3; ++c)
            owed[c].swap(next[c]), next[c].assign(next[c].size(), 0);
    }
    return sheet;
}

/// Lays a picture of the same size over another.
void layOver(Picture &below, const Picture &top)
{
    if (top.width != below.width || top.height != below.height)
        fail("what lies over a scene is not of its size");
    for (std::size_t i = 0; i < below.pixels.size(); ++i) {
        const Pixel &p = top.pixels[i];
        below.pixels[i].colour = mix(below.pixels[i].colour, p.colour, p.alpha);
    }
}

struct Sky {
    std::uint32_t seed;
    int stars;
    double nebula;
    Box quiet;
};

/// A rendering before the sky; `overlay`, unless empty, is a picture of the finished size that lies over
/// both.
void packScene(const std::string &out, const Sky &look, const std::string &in, const std::string &overlay)
{
    constexpr int kWidth = 240, kHeight = 320;
    Picture scene = reduced(readPicture(in), kWidth, kHeight);
    Picture sky(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            sky.at(x, y).colour = skyAt(x, y, look.nebula, look.seed);
    addStars(sky, look.seed, look.stars, look.quiet);
    sharpen(scene, 0.25);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            Pixel &p = scene.at(x, y);
            p.colour = sky.at(x, y).colour * (1 - p.alpha) + p.colour * p.alpha;
        }
    if (!overlay.empty())
        layOver(scene, readPicture(overlay));
    writeJpeg(out, fitted(scene), kQuality);
}

} // namespace

constexpr const char *kUsage =
    "usage: pack rock OUT SIZE COLOURS FRAME... | blast OUT FRAME... | dots OUT IN\n"
    "       pack picture OUT WIDTH HEIGHT SHARPNESS IN\n"
    "       pack scene OUT SEED STARS NEBULA QUIET-LEFT TOP RIGHT BOTTOM IN [OVERLAY]";

int main(int argc, char **argv)
{
    const Files a(argv + 1, argv + argc);
    const auto rest = [&](int from) { return Files(a.begin() + from, a.end()); };
    const std::string what = a.empty() ? "" : a[0];
    if (what == "rock" && a.size() >= 5) {
        const int size = std::stoi(a[2]);
        const std::vector<Vec> colours = parseColours(a[3]);
        packStrip(a[1], rest(4), kBlack,
                  [&](const std::string &file) { return painted(file, size, size, colours); });
    } else if (what == "blast" && a.size() >= 3) {
        packStrip(a[1], rest(2), kMagenta, blastFrame);
    } else if (what == "dots" && a.size() == 3) {
        packStrip(a[1], rest(2), kBlack, [](const std::string &file) { return cutOut(readPicture(file)); });
    } else if (what == "picture" && a.size() == 6) {
        Picture picture = reduced(readPicture(a[5]), std::stoi(a[2]), std::stoi(a[3]));
        sharpen(picture, std::stod(a[4]));
        writePng(a[1], outlined(cutOut(picture)));
    } else if (what == "scene" && (a.size() == 10 || a.size() == 11)) {
        const Sky sky{static_cast<std::uint32_t>(std::stoul(a[2])),
                      std::stoi(a[3]),
                      std::stod(a[4]),
                      {std::stoi(a[5]), std::stoi(a[6]), std::stoi(a[7]), std::stoi(a[8])}};
        packScene(a[1], sky, a[9], a.size() == 11 ? a[10] : "");
    } else {
        fail(kUsage);
    }
}
