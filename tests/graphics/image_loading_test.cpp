#include "graphics/image_loading.h"

#include <sys/stat.h>

#include "platform/common/picture.h"
#include "tests/support/device_test.h"

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
    EXPECT_TRUE(surface.keyEnabled() && surface.colourKey() == 'k');
    EXPECT_EQ(lettersOf(copy), "ab/");
    return surface;
}

Surface decoded(std::string_view bytes) { return loaded(DeviceTest::written("picture", bytes)); }

bool fails(const Surface &surface) { return surface.pixels() == nullptr; }

/// Calls visit(name, picture, bytes) for every file of a folder of tests/pictures.
template <class Visitor> int visitPictures(const char *folder, Visitor visit)
{
    int count = 0;
    for (const auto &file : std::filesystem::directory_iterator(PICTURES_FOLDER + std::string(folder))) {
        SCOPED_TRACE(file.path());
        const std::string bytes = readFile(file.path());
        visit(file.path().filename().string(), decoded(bytes), bytes);
        ++count;
    }
    EXPECT_GT(count, 0) << folder;
    return count;
}

TEST_F(ImageLoading, ReadsPicturesOfEveryKindAndOfSidesFrom1To4096)
{
    // PNGs of 8 and 16 bits, with alpha, palettes, interlaced: all are 9 x 8 and the same gradients. JPEGs,
    // progressive or not, colours as such, as inks, and as what inverted inks leave: all have the same
    // halves.
    const int count = visitPictures("/kinds", [](const std::string &name, const Surface &picture,
                                                 const auto &) {
        const bool grey = name.starts_with("grey");
        if (name.ends_with(".jpg")) {
            ASSERT_EQ(picture.pixelCount(), 32 * 32);
            EXPECT_EQ(picture.pixelAt(4, 4), grey ? packColour(132, 132, 132) : packColour(204, 102, 4));
            EXPECT_EQ(picture.pixelAt(28, 28), grey ? packColour(68, 68, 68) : packColour(4, 102, 204));
            return;
        }
        ASSERT_EQ(picture.pixelCount(), 9 * 8);
        for (std::int32_t i = 0; i < picture.pixelCount(); ++i) {
            const int red = i % 9 * 31, green = i / 9 * 31, blue = 255 - i % 9 * 15 - i / 9 * 15;
            EXPECT_EQ(picture.pixels()[i], grey ? packColour(red, red, red) : packColour(red, green, blue))
                << i;
        }
    });
    EXPECT_EQ(count, 18 + 7);
    visitPictures("/odd", [](const std::string &name, const Surface &picture, const auto &) {
        EXPECT_TRUE(
            name.starts_with(std::to_string(picture.width()) + 'x' + std::to_string(picture.height())));
    });
}

TEST_F(ImageLoading, RefusesWhatIsNoPicture)
{
    for (const auto &[width, height] : {std::pair{0u, 1u}, {1u, 0u}, {4097u, 1u}, {1u, 4097u}})
        EXPECT_FALSE(platform::common::Picture().allocate(width, height)) << width << " x " << height;
    visitPictures("/bad",
                  [](const auto &, const Surface &picture, const auto &) { EXPECT_TRUE(fails(picture)); });
    std::filesystem::create_directory("folder.png");
    mkfifo("pipe.png", S_IRWXU); // whoever opens it waits for ever
    for (const char16_t *name : {u"missing.png", u"folder.png", u"pipe.png", u""})
        EXPECT_TRUE(fails(loaded(dataFilePath(name))));
    EXPECT_TRUE(fails(loaded(u"")));
}

std::string_view pixelsOf(const Surface &picture)
{
    return {reinterpret_cast<const char *>(picture.pixels()),
            static_cast<std::size_t>(picture.pixelCount()) * sizeof(Pixel)};
}

TEST_F(ImageLoading, RefusesAPictureCutShortAndSurvivesDamage)
{
    visitPictures("/kinds", [](const std::string &name, const Surface &picture, const std::string &whole) {
        const std::size_t endMarker = name.ends_with(".png") ? 12 : 2;
        for (std::size_t cut = 1; cut <= whole.size(); cut += 1 + cut / 16) {
            const Surface rest = decoded(whole.substr(0, whole.size() - cut));
            if (cut <= endMarker)
                EXPECT_EQ(pixelsOf(rest), pixelsOf(picture)) << cut << " bytes of the end marker missing";
            else
                EXPECT_TRUE(fails(rest)) << cut << " bytes missing";
        }
        if (name.ends_with(".jpg")) {
            const std::string stray(64, 's');
            EXPECT_TRUE(fails(decoded(std::string(whole).insert(whole.size() - endMarker, stray))));
            EXPECT_TRUE(fails(decoded(whole.substr(0, whole.rfind("\xFF\xDA"))))) << "without its last scan";
        }
        for (std::size_t at = 0; at < whole.size(); at += 3) {
            std::string damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ (at % 2 ? 0x01 : 0xFF));
            decoded(damaged);
        }
    });
}

TEST_F(ImageLoading, OverlooksDamageThatHarmsNoPixel)
{
    constexpr std::size_t kPngHeader = 33;
    const std::string badText("\0\0\0\x03tEXta\0b1234", 15); // its checksum is wrong
    visitPictures("/kinds", [&](const std::string &name, const Surface &picture, const std::string &whole) {
        std::string damaged = whole;
        if (name.ends_with(".png")) {
            damaged.insert(kPngHeader, badText);
            EXPECT_EQ(pixelsOf(decoded(damaged)), pixelsOf(picture));
            return;
        }
        for (std::size_t segment = 2; static_cast<unsigned char>(whole[segment + 1]) != 0xDA;) {
            segment += 2 + static_cast<unsigned char>(whole[segment + 2]) * 256u +
                       static_cast<unsigned char>(whole[segment + 3]);
            EXPECT_EQ(pixelsOf(decoded(std::string(whole).insert(segment, "stray"))), pixelsOf(picture));
        }
    });
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
