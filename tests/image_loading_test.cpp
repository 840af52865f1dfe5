#include <random>
#include <sys/stat.h>

#include <jpeglib.h>
#include <png.h>

#include "graphics/image_loading.h"
#include "tests/support/device_test.h"
#include "tests/support/letters.h"
#include "tests/support/picture_files.h"

namespace mygame::tests
{
namespace
{

using ImageLoading = DeviceTest;

/// Loads a file over an old picture with a key; of a failed load nothing but the key must remain.
Surface loaded(const std::u16string &path)
{
    Surface surface = surfaceOf("ab/");
    surface.setColourKey('k');
    const Surface copy = surface;
    const bool success = surface.load(path);
    EXPECT_EQ(surface.pixels() != nullptr, success);
    EXPECT_EQ(surface.width() > 0 && surface.height() > 0, success);
    EXPECT_EQ(surface.shareCount(), success ? 1u : 0u);
    EXPECT_TRUE(surface.keyEnabled() && surface.colourKey() == 'k');
    EXPECT_EQ(lettersOf(copy), "ab/");
    return surface;
}

Surface decoded(std::string_view bytes) { return loaded(DeviceTest::written("picture", bytes)); }

bool fails(const Surface &surface) { return surface.pixels() == nullptr; }

constexpr int kSide = 9; // odd, and enough for every pass of an interlaced file
constexpr int red(int x, int) { return x * 31; }
constexpr int green(int, int y) { return y * 31; }
constexpr int blue(int x, int y) { return 255 - x * 15 - y * 15; }

/// Samples of 8 bits, or of 16 whose low half must not count.
std::string samples(std::initializer_list<int> values, int bits)
{
    std::string bytes;
    for (const int value : values) {
        bytes += static_cast<char>(value);
        if (bits == 16)
            bytes += static_cast<char>(~value);
    }
    return bytes;
}

std::string gradient(int x, int y) { return samples({red(x, y), green(x, y), blue(x, y)}, 8); }
std::string grey(int x, int y) { return samples({red(x, y)}, 8); }

const PngKind kColourPng{PNG_COLOR_TYPE_RGB, 8, false, ""};
constexpr JpegKind kColourJpeg{3, JCS_RGB, JCS_YCbCr};
constexpr JpegKind kProgressiveJpeg{3, JCS_RGB, JCS_YCbCr, true};
constexpr JpegKind kGreyJpeg{1, JCS_GRAYSCALE, JCS_GRAYSCALE};

TEST_F(ImageLoading, ReadsEveryKindOfPng)
{
    std::string palette;
    for (int i = 0; i < kSide * kSide; ++i)
        palette += gradient(i % kSide, i / kSide);
    for (const int type : {PNG_COLOR_TYPE_RGB, PNG_COLOR_TYPE_RGB_ALPHA, PNG_COLOR_TYPE_PALETTE,
                           PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_GRAY_ALPHA}) {
        for (const int form : {8, 16, -8, -16}) { // negative: interlaced
            const bool indexed = type == PNG_COLOR_TYPE_PALETTE;
            const int bits = indexed ? 8 : std::abs(form);
            const auto samplesAt = [&](int x, int y) {
                const std::string colour = samples({red(x, y), green(x, y), blue(x, y)}, bits);
                if (indexed)
                    return samples({x + y * kSide}, bits);
                return (type & PNG_COLOR_MASK_COLOR ? colour : samples({red(x, y)}, bits)) +
                       (type & PNG_COLOR_MASK_ALPHA ? samples({x * 20}, bits) : "");
            };
            const Surface surface =
                decoded(png({type, bits, form < 0, indexed ? palette : ""}, kSide, kSide - 1, samplesAt));
            ASSERT_EQ(surface.pixelCount(), kSide * (kSide - 1)) << "type " << type << ", form " << form;
            for (int i = 0; i < surface.pixelCount(); ++i) {
                const int x = i % kSide, y = i / kSide;
                EXPECT_EQ(surface.pixels()[i], type & PNG_COLOR_MASK_COLOR
                                                   ? packColour(red(x, y), green(x, y), blue(x, y))
                                                   : packColour(red(x, y), red(x, y), red(x, y)))
                    << "type " << type << ", form " << form << ", pixel " << i;
            }
        }
    }
}

TEST_F(ImageLoading, ReadsEveryKindOfJpeg)
{
    // Two colours, as such, as inks, and as what inverted inks leave; black ink takes a fifth of the light.
    const std::string colours[] = {"\xCC\x66\x04", "\x04\x66\xCC"}, greys[] = {"\x84", "\x44"};
    const std::string inks[] = {{"\x00\x7F\xFA\x33", 4}, {"\xFA\x7F\x00\x33", 4}};
    const std::string light[] = {{"\xFF\x80\x05\xCC", 4}, {"\x05\x80\xFF\xCC", 4}};
    constexpr Pixel kColours[] = {packColour(204, 102, 4), packColour(4, 102, 204)};
    constexpr Pixel kGreys[] = {packColour(0x84, 0x84, 0x84), packColour(0x44, 0x44, 0x44)};
    const struct {
        JpegKind kind;
        const std::string *samples;
        const Pixel *pixels;
    } files[] = {{kColourJpeg, colours, kColours},
                 {kProgressiveJpeg, colours, kColours},
                 {{3, JCS_RGB, JCS_RGB, false, true}, colours, kColours},
                 {kGreyJpeg, greys, kGreys},
                 {{4, JCS_CMYK, JCS_CMYK}, inks, kColours},
                 {{4, JCS_CMYK, JCS_CMYK, false, true}, light, kColours},
                 {{4, JCS_CMYK, JCS_YCCK, true, true}, light, kColours}};
    for (const auto &file : files) {
        SCOPED_TRACE(&file - files);
        const Surface surface =
            decoded(jpeg(file.kind, 32, 32, [&file](int, int y) { return file.samples[y / 16]; }));
        ASSERT_EQ(surface.pixelCount(), 32 * 32);
        EXPECT_EQ(surface.pixelAt(4, 4), file.pixels[0]);
        EXPECT_EQ(surface.pixelAt(28, 28), file.pixels[1]);
    }
}

TEST_F(ImageLoading, RefusesWhatIsNoPicture)
{
    std::filesystem::create_directory("folder.png");
    mkfifo("pipe.png", S_IRWXU); // whoever opens it waits for ever
    for (const char16_t *name : {u"missing.png", u"folder.png", u"pipe.png", u""})
        EXPECT_TRUE(fails(loaded(dataFilePath(name))));
    EXPECT_TRUE(fails(loaded(u"")));
    std::mt19937 random(1);
    for (const char *start : {"", "GIF89a", "\x89PNG\r\n\x1A\n", "\xFF\xD8\xFF\xDB"}) {
        std::string bytes(start);
        EXPECT_TRUE(fails(decoded(bytes)));
        while (bytes.size() < 5000)
            bytes += static_cast<char>(random());
        EXPECT_TRUE(fails(decoded(bytes)));
    }
}

TEST_F(ImageLoading, RefusesAPictureCutShortAndSurvivesDamage)
{
    for (const std::string &whole :
         {png(kColourPng, kSide, kSide, gradient), jpeg(kColourJpeg, kSide, kSide, gradient),
          jpeg(kProgressiveJpeg, kSide, kSide, gradient), jpeg(kGreyJpeg, kSide, kSide, grey)}) {
        EXPECT_FALSE(fails(decoded(whole)));
        for (std::size_t cut = 1; cut <= whole.size(); cut += 1 + cut / 16)
            EXPECT_TRUE(fails(decoded(whole.substr(0, whole.size() - cut)))) << cut << " bytes missing";
        for (std::size_t at = 0; at < whole.size(); ++at) {
            std::string damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ (at % 2 ? 0x01 : 0xFF));
            decoded(damaged);
        }
    }
}

TEST_F(ImageLoading, AcceptsSidesFrom1To4096ThatTheFileHolds)
{
    EXPECT_EQ(decoded(png(kColourPng, 4096, 1, gradient)).width(), 4096);
    EXPECT_EQ(decoded(jpeg(kGreyJpeg, 1, 4096, grey)).height(), 4096);
    for (const std::uint32_t side : {0u, 4097u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        EXPECT_TRUE(fails(decoded(png(kColourPng, side, 1, gradient)))) << side;
        EXPECT_TRUE(fails(decoded(png(kColourPng, 1, side, gradient)))) << side;
    }
    const auto lastRowMissing = [](int x, int y) { return y < kSide - 1 ? gradient(x, y) : ""; };
    EXPECT_TRUE(fails(decoded(png(kColourPng, kSide, kSide, lastRowMissing))));
    EXPECT_TRUE(fails(decoded(jpeg(kGreyJpeg, 4097, 1, grey))));
    std::string lying = jpeg(kGreyJpeg, kSide, kSide, grey);
    for (const char *lie : {"\x00\x00", "\x0F\xFF", "\xFF\xFF"})
        EXPECT_TRUE(fails(decoded(lying.replace(lying.find("\xFF\xC0") + 5, 2, lie, 2))));
}

TEST_F(ImageLoading, FindsDataFilesBesideTheExecutable)
{
    const auto pathFrom = [this](const std::u16string &executable) {
        device.executable = executable;
        return dataFilePath(u"a\\b.png");
    };
    EXPECT_EQ(pathFrom(u"\\Storage\\My Apps\\run.exe"), u"\\Storage\\My Apps\\a\\b.png");
    for (const char16_t *executable : {u"\\run.exe", u"run.exe", u"\\", u""})
        EXPECT_EQ(pathFrom(executable), u"\\a\\b.png");
    for (const std::size_t length : {258u, 259u, 260u, 261u, 520u, 5000u}) {
        const std::u16string deep = u'\\' + std::u16string(length - 3, u'x') + u'\\';
        EXPECT_EQ(pathFrom(deep + u'r'), deep + u"a\\b.png") << length;
    }
}

} // namespace
} // namespace mygame::tests
