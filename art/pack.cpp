// Makes the game's pictures from the renderings: reduces them in linear light, puts the night sky behind the scenes,
// fits everything to the 16-bit screen and cuts the keyed pictures clean.
#include "picture.h"

#include <cstring>

#include <jpeglib.h>

using namespace art;

namespace
{

struct Rgb
{
    std::uint8_t r = 0, g = 0, b = 0;
};

struct Sheet
{
    int width = 0, height = 0;
    std::vector<Rgb> pixels;

    Sheet(int w, int h, Rgb fill) : width(w), height(h), pixels(static_cast<std::size_t>(w) * h, fill) {}
    Rgb &at(int x, int y) { return pixels[static_cast<std::size_t>(y) * width + x]; }
};

/// Averages blocks of pixels; colours count as much as they cover.
Picture reduced(const Picture &large, int width, int height)
{
    const int kx = large.width / width, ky = large.height / height;
    if (kx * width != large.width || ky * height != large.height)
        fail("a rendering is not a whole multiple of its picture");
    Picture small(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
        {
            Vec sum;
            double cover = 0;
            for (int j = 0; j < ky; ++j)
                for (int i = 0; i < kx; ++i)
                {
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
        for (int x = 0; x < picture.width; ++x)
        {
            Vec sum;
            double weight = 0;
            for (int j = std::max(0, y - 1); j <= std::min(picture.height - 1, y + 1); ++j)
                for (int i = std::max(0, x - 1); i <= std::min(picture.width - 1, x + 1); ++i)
                {
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

constexpr int kBayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

/// The nearest value that the 16-bit screen can show, as the byte that packs to it; `shift` in steps dithers.
std::uint8_t screenByte(double linear, int bits, double shift)
{
    const int most = (1 << bits) - 1;
    const int level = std::clamp(static_cast<int>(std::floor(toSrgb(linear) * most + 0.5 + shift)), 0, most);
    return static_cast<std::uint8_t>(bits == 5 ? level << 3 | level >> 2 : level << 2 | level >> 4);
}

Rgb screenColour(Vec c, double shift = 0)
{
    return {screenByte(c.x, 5, shift), screenByte(c.y, 6, shift), screenByte(c.z, 5, shift)};
}

void writeSheet(const std::string &path, const Sheet &sheet)
{
    std::vector<std::uint8_t> bytes;
    for (Rgb p : sheet.pixels)
        bytes.insert(bytes.end(), {p.r, p.g, p.b});
    writePng(path, sheet.width, sheet.height, 3, bytes);
}

/// An object's pixel must never be the key, black: its darkest shade is a night blue.
Rgb solid(Rgb c) { return c.r < 8 && c.g < 8 && c.b < 16 ? Rgb{8, 8, 16} : c; }

void cut(const Picture &frame, Sheet &sheet, int left, int top)
{
    for (int y = 0; y < frame.height; ++y)
        for (int x = 0; x < frame.width; ++x)
            if (frame.at(x, y).alpha >= 0.5)
                sheet.at(left + x, top + y) = solid(screenColour(frame.at(x, y).colour));
}

// The marker column's colours: rows of a frame, and the row between two frames.
constexpr Rgb kMarker{255, 255, 255};
constexpr Rgb kBetween{255, 0, 0};

Sheet emptyStrip(int width, int height, int frames, Rgb key)
{
    Sheet strip(width + 1, frames * (height + 1) - 1, key);
    for (int y = 0; y < strip.height; ++y)
        strip.at(0, y) = y % (height + 1) == height ? kBetween : kMarker;
    return strip;
}

void packStrip(const std::string &out, int width, int height, double sharpness, const std::vector<std::string> &in)
{
    Sheet strip = emptyStrip(width, height, static_cast<int>(in.size()), {0, 0, 0});
    for (std::size_t i = 0; i < in.size(); ++i)
    {
        Picture frame = reduced(readPng(in[i]), width, height);
        sharpen(frame, sharpness);
        cut(frame, strip, 1, static_cast<int>(i) * (height + 1));
    }
    writeSheet(out, strip);
}

void packPicture(const std::string &out, int width, int height, double sharpness, const std::string &in)
{
    Sheet sheet(width, height, {0, 0, 0});
    Picture frame = reduced(readPng(in), width, height);
    sharpen(frame, sharpness);
    cut(frame, sheet, 0, 0);
    writeSheet(out, sheet);
}

/// A blast's frames come with soft edges; thinning smoke is shown by leaving out pixels in a fixed pattern.
void packBlast(const std::string &out, int width, int height, const std::vector<std::string> &in)
{
    Sheet strip = emptyStrip(width, height, static_cast<int>(in.size()), {255, 0, 255});
    for (std::size_t i = 0; i < in.size(); ++i)
    {
        const Picture frame = reduced(readPng(in[i]), width, height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
            {
                const double step = (kBayer[y & 3][x & 3] + 0.5) / 16;
                const Pixel &p = frame.at(x, y);
                if (p.alpha > 0.12 + 0.62 * step)
                    strip.at(1 + x, static_cast<int>(i) * (height + 1) + y) = screenColour(p.colour, (step - 0.5) * 0.8);
            }
    }
    writeSheet(out, strip);
}

/// The night sky at a pixel: near black, a breath of indigo and teal.
Vec skyAt(double x, double y, double nebula)
{
    Vec c = mix(hex(0x03050C), hex(0x070C1A), clamp01(y / 320));
    const Vec p{x / 95, y / 95, 4.2};
    const double band = std::exp(-std::pow((y - 95 - 0.45 * (x - 120) + 30 * noise(p * 0.8)) / 62, 2));
    const double veil = clamp01(0.5 + 0.8 * fractal(p * 1.6, 5));
    c = c + (hex(0x1B1F4A) + hex(0x0C0F28)) * (nebula * band * veil * veil);
    c = c + hex(0x0E3A4A) * (nebula * 0.8 * band * smooth(0.45, 0.95, clamp01(0.5 + 0.8 * fractal(p * 1.3 + Vec{5, 2, 8}, 5))));
    return c * (1 - 0.45 * band * smooth(0.25, 0.6, ridged(p * 1.7 + Vec{1, 1, 3}, 4)) * nebula * 0.8);
}

void addStars(Picture &sky, std::uint32_t seed, int count)
{
    for (int i = 0; i < count; ++i)
    {
        const auto n = static_cast<std::uint32_t>(i);
        const int x = static_cast<int>(chance(seed, n, 1) * sky.width), y = static_cast<int>(chance(seed, n, 2) * sky.height);
        const double bright = 0.02 + 0.75 * std::pow(chance(seed, n, 3), 7);
        const double warmth = chance(seed, n, 4);
        const Vec tint = warmth < 0.3 ? hex(0xAFC8FF) : warmth > 0.85 ? hex(0xFFD9B0) : hex(0xF0F4FF);
        const auto add = [&](int px, int py, double k)
        {
            if (px >= 0 && py >= 0 && px < sky.width && py < sky.height)
                sky.at(px, py).colour = sky.at(px, py).colour + tint * (bright * k);
        };
        add(x, y, 1);
        if (bright > 0.34)
            for (const auto &[dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
                add(x + dx, y + dy, 0.16);
    }
}

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
    for (int y = 0; y < sheet.height; ++y)
    {
        std::memcpy(row.data(), &sheet.pixels[static_cast<std::size_t>(y) * sheet.width], row.size());
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&jpeg, rows, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    std::fclose(file);
}

/// A byte that, packed by cutting off its low bits, is right on average: half a step up, and noise of one step.
std::uint8_t ditheredByte(double linear, int step, double random)
{
    const double v = toSrgb(linear) * 255;
    return static_cast<std::uint8_t>(std::clamp(std::lround(v + step * random), 0L, 255L));
}

void packScene(const std::string &out, std::uint32_t seed, int stars, double nebula, const std::string &in)
{
    constexpr int kWidth = 240, kHeight = 320;
    const Picture scene = reduced(readPng(in), kWidth, kHeight);
    Picture sky(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            sky.at(x, y).colour = skyAt(x, y, nebula);
    addStars(sky, seed, stars);
    Sheet sheet(kWidth, kHeight, {});
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
        {
            const Pixel &p = scene.at(x, y);
            const Vec c = sky.at(x, y).colour * (1 - p.alpha) + p.colour * p.alpha;
            const auto random = [&](std::uint32_t n)
            {
                const double ordered = (kBayer[y & 3][x & 3] + 0.5) / 16;
                return mix(ordered, chance(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), n), 0.35);
            };
            sheet.at(x, y) = {ditheredByte(c.x, 8, random(1)), ditheredByte(c.y, 4, random(1)), ditheredByte(c.z, 8, random(1))};
        }
    writeJpeg(out, sheet, 95);
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> a(argv + 1, argv + argc);
    const auto rest = [&](std::size_t from) { return std::vector<std::string>(a.begin() + static_cast<long>(from), a.end()); };
    if (a.size() >= 6 && a[0] == "strip")
        packStrip(a[1], std::stoi(a[2]), std::stoi(a[3]), std::stod(a[4]), rest(5));
    else if (a.size() == 6 && a[0] == "picture")
        packPicture(a[1], std::stoi(a[2]), std::stoi(a[3]), std::stod(a[4]), a[5]);
    else if (a.size() >= 5 && a[0] == "blast")
        packBlast(a[1], std::stoi(a[2]), std::stoi(a[3]), rest(4));
    else if (a.size() == 6 && a[0] == "scene")
        packScene(a[1], static_cast<std::uint32_t>(std::stoul(a[2])), std::stoi(a[3]), std::stod(a[4]), a[5]);
    else
        fail("usage: pack strip OUT WIDTH HEIGHT SHARPNESS FRAME... | picture OUT WIDTH HEIGHT SHARPNESS IN\n"
             "       pack blast OUT WIDTH HEIGHT FRAME... | scene OUT SEED STARS NEBULA IN");
}
