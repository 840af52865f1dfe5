#include "graphics/image_loading.h"

#include <map>
#include <random>
#include <sys/stat.h>
#include <vector>

#include <zlib.h>

#include "tests/support/device_test.h"
#include "tests/support/letters.h"
#include "tools/replay/picture_file.h"

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

const std::filesystem::path kPictures = PICTURES_FOLDER;

/// A file of tests/pictures.
std::string sample(const std::string &name) { return readFile(kPictures / name); }

/// Every sample of a kind of file, by its name, which begins with "grey" where there are no colours.
std::map<std::string, std::string> samplesOf(const char *extension)
{
    std::map<std::string, std::string> samples;
    for (const auto &file : std::filesystem::directory_iterator(kPictures / "kinds")) {
        if (file.path().extension() == extension)
            samples[file.path().filename()] = readFile(file.path());
    }
    return samples;
}

/// A number as it stands in a PNG.
std::string bigEndian(std::uint32_t number)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift);
    return bytes;
}

/// A PNG whose header gives another width or height, and is right otherwise.
std::string withSide(std::string png, std::size_t offset, std::uint32_t side)
{
    constexpr std::size_t kHeader = 12, kChecksum = 29;
    png.replace(offset, 4, bigEndian(side));
    const auto *header = reinterpret_cast<const Bytef *>(png.data()) + kHeader;
    return png.replace(kChecksum, 4,
                       bigEndian(static_cast<std::uint32_t>(crc32(0, header, kChecksum - kHeader))));
}

constexpr std::size_t kPngWidth = 16, kPngHeight = 20; ///< Offsets.

TEST_F(ImageLoading, ReadsEveryKindOfPng)
{
    // 8 and 16 bits, with and without alpha, palettes, interlaced or not: all are 9 x 8 and the same
    // gradients.
    const auto files = samplesOf(".png");
    EXPECT_EQ(files.size(), 18u);
    for (const auto &[name, bytes] : files) {
        SCOPED_TRACE(name);
        const Surface surface = decoded(bytes);
        ASSERT_EQ(surface.pixelCount(), 9 * 8);
        for (std::int32_t i = 0; i < surface.pixelCount(); ++i) {
            const int red = i % 9 * 31, green = i / 9 * 31, blue = 255 - i % 9 * 15 - i / 9 * 15;
            const bool grey = name.starts_with("grey");
            EXPECT_EQ(surface.pixels()[i], grey ? packColour(red, red, red) : packColour(red, green, blue))
                << i;
        }
    }
}

TEST_F(ImageLoading, ReadsEveryKindOfJpeg)
{
    // Progressive or not; colours as such, as inks, and as what inverted inks leave: all have the same
    // halves.
    const auto files = samplesOf(".jpg");
    EXPECT_EQ(files.size(), 7u);
    for (const auto &[name, bytes] : files) {
        SCOPED_TRACE(name);
        const Surface surface = decoded(bytes);
        ASSERT_EQ(surface.pixelCount(), 32 * 32);
        const bool grey = name.starts_with("grey");
        EXPECT_EQ(surface.pixelAt(4, 4), grey ? packColour(0x84, 0x84, 0x84) : packColour(204, 102, 4));
        EXPECT_EQ(surface.pixelAt(28, 28), grey ? packColour(0x44, 0x44, 0x44) : packColour(4, 102, 204));
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
    for (const char *name : {"colour-8.png", "colour.jpg", "colour-progressive.jpg", "grey.jpg"}) {
        const std::string whole = sample(std::string("kinds/") + name);
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
    replay::writePicture("wide.png", std::vector<Pixel>(4096), 4096);
    EXPECT_EQ(decoded(readFile("wide.png")).width(), 4096);
    EXPECT_EQ(decoded(sample("1x4096.jpg")).height(), 4096);
    EXPECT_TRUE(fails(decoded(sample("4097x1.jpg"))));
    const std::string png = sample("kinds/colour-8.png");
    EXPECT_EQ(decoded(withSide(png, kPngHeight, 8)).height(), 8);
    for (const std::uint32_t side : {0u, 9u, 4097u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        EXPECT_TRUE(side == 9 || fails(decoded(withSide(png, kPngWidth, side)))) << side;
        EXPECT_TRUE(fails(decoded(withSide(png, kPngHeight, side)))) << side;
    }
    std::string lying = sample("kinds/grey.jpg");
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
