#include <cstdio>
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
    EXPECT_EQ(surface.pixels() != nullptr && surface.pixelCount() > 0, success);
    EXPECT_TRUE(surface.keyEnabled() && surface.colourKey() == 'k');
    EXPECT_EQ(lettersOf(copy), "ab/");
    return surface;
}

Surface decoded(std::string_view bytes) { return loaded(DeviceTest::written("picture", bytes)); }

bool fails(const Surface &surface) { return surface.pixels() == nullptr; }

constexpr int kSide = 9; // odd, and enough for every pass of an interlaced file

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

std::string gradient(int x, int y, int bits) { return samples({x * 31, y * 31, 255 - x * 15}, bits); }
std::string plain(int x, int y) { return gradient(x, y, 8); }
std::string grey(int x, int) { return samples({x * 31}, 8); }

constexpr JpegKind kColourJpeg{3, JCS_RGB, JCS_YCbCr}, kProgressiveJpeg{3, JCS_RGB, JCS_YCbCr, true},
    kGreyJpeg{1, JCS_GRAYSCALE, JCS_GRAYSCALE};

TEST_F(ImageLoading, ReadsEveryKindOfPng)
{
    std::string palette;
    for (int i = 0; i < kSide * kSide; ++i)
        palette += plain(i % kSide, i / kSide);
    for (const int type : {PNG_COLOR_TYPE_RGB, PNG_COLOR_TYPE_RGB_ALPHA, PNG_COLOR_TYPE_PALETTE,
                           PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_GRAY_ALPHA}) {
        for (const int form : {8, 16, -8, -16}) { // negative: interlaced
            const bool indexed = type == PNG_COLOR_TYPE_PALETTE, coloured = type & PNG_COLOR_MASK_COLOR;
            const int bits = indexed ? 8 : std::abs(form);
            const auto samplesAt = [&](int x, int y) {
                if (indexed)
                    return samples({x + y * kSide}, bits);
                return (coloured ? gradient(x, y, bits) : samples({x * 31}, bits)) +
                       (type & PNG_COLOR_MASK_ALPHA ? samples({x * 20}, bits) : "");
            };
            const Surface surface =
                decoded(png({type, bits, form < 0, indexed ? palette : ""}, kSide, kSide - 1, samplesAt));
            ASSERT_EQ(surface.pixelCount(), kSide * (kSide - 1)) << "type " << type << ", form " << form;
            for (int i = 0; i < surface.pixelCount(); ++i) {
                const int red = i % kSide * 31, green = i / kSide * 31, blue = 255 - i % kSide * 15;
                EXPECT_EQ(surface.pixels()[i],
                          coloured ? packColour(red, green, blue) : packColour(red, red, red))
                    << "type " << type << ", form " << form << ", pixel " << i;
            }
        }
    }
}

TEST_F(ImageLoading, ReadsEveryKindOfJpeg)
{
    // One colour, as such, as inks, and as what inverted inks leave; black ink takes a fifth of the light.
    const std::string colour = "\xCC\x66\x04", inks("\x00\x7F\xFA\x33", 4), light("\xFF\x80\x05\xCC", 4);
    const struct {
        JpegKind kind;
        const std::string &samples;
    } files[] = {{kColourJpeg, colour},
                 {kProgressiveJpeg, colour},
                 {{3, JCS_RGB, JCS_RGB, false, true}, colour},
                 {{4, JCS_CMYK, JCS_CMYK}, inks},
                 {{4, JCS_CMYK, JCS_YCCK, true, true}, light}};
    for (const auto &file : files) {
        const Surface surface = decoded(jpeg(file.kind, 16, 16, [&file](int, int) { return file.samples; }));
        EXPECT_EQ(surface.pixelAt(15, 15), packColour(204, 102, 4)) << &file - files;
    }
    EXPECT_EQ(decoded(jpeg(kGreyJpeg, 1, 4096, [](int, int) { return "\x84"; })).pixelAt(0, 4095),
              packColour(0x84, 0x84, 0x84));
}

TEST_F(ImageLoading, RefusesWhatIsNoWholePicture)
{
    std::filesystem::create_directory("folder.png");
    mkfifo("pipe.png", S_IRWXU); // whoever opens it waits for ever
    for (const char16_t *name : {u"missing.png", u"folder.png", u"pipe.png", u""})
        EXPECT_TRUE(fails(loaded(dataFilePath(name))));
    for (const std::string &whole :
         {png({PNG_COLOR_TYPE_RGB, 8, false, ""}, kSide, kSide, plain),
          jpeg(kColourJpeg, kSide, kSide, plain), jpeg(kProgressiveJpeg, kSide, kSide, plain),
          jpeg(kGreyJpeg, kSide, kSide, grey)}) {
        EXPECT_FALSE(fails(decoded(whole)));
        for (std::size_t cut = 1; cut <= whole.size(); cut += 1 + cut / 16)
            EXPECT_TRUE(fails(decoded(whole.substr(0, whole.size() - cut)))) << cut << " bytes missing";
    }
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
    for (const std::size_t length : {259u, 260u, 261u, 520u, 5000u}) {
        const std::u16string deep = u'\\' + std::u16string(length - 3, u'x') + u'\\';
        EXPECT_EQ(pathFrom(deep + u'r'), deep + u"a\\b.png") << length;
    }
}

} // namespace
} // namespace mygame::tests
