/// What the pictures and the sound in data/ must keep for the game to work.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "game/game_state.h"
#include "graphics/image_loading.h"
#include "platform/common/picture.h"
#include "platform/virtual/virtual_device.h"
#include "shell/application.h"
#include "shell/startup.h"

namespace mygame::tests
{
namespace
{

const std::string kFolder = DATA_FOLDER "/";
const std::vector<std::string> kBlackStrips = {"asteroid.png", "asteroid2.png", "asteroid3.png",
                                               "asteroid4.png", "missile.png"};

/// The whole program beside the game's own files. One for the process: what has subscribed stays subscribed.
Program &program()
{
    platform::VirtualDevice::instance().dataFolder = kFolder;
    static auto *program = new Program;
    return *program;
}

Surface pictureOf(const std::string &file)
{
    program();
    Surface surface;
    EXPECT_TRUE(surface.load(dataFilePath({file.begin(), file.end()}))) << file;
    return surface;
}

/// The frames of a strip; all must be of one size.
std::vector<Surface> framesOf(const std::string &file)
{
    program();
    AnimatedSprite sprite;
    EXPECT_TRUE(sprite.load(dataFilePath({file.begin(), file.end()}), 1)) << file;
    std::vector<Surface> frames;
    for (std::int32_t i = 0; i < sprite.frameCount(); ++i) {
        frames.push_back(sprite.frame(i));
        EXPECT_EQ(frames[0].width(), frames.back().width()) << file;
        EXPECT_EQ(frames[0].height(), frames.back().height()) << file;
    }
    return frames;
}

int brightness(Pixel pixel)
{
    const int red = pixel >> 11 << 3, green = (pixel >> 5 & 63) << 2, blue = (pixel & 31) << 3;
    return (3 * red + 6 * green + blue) / 10;
}

/// Pixels of the key's colour that the object encloses: what lies behind would shine through there.
std::ptrdiff_t holes(const Surface &picture, Pixel key)
{
    Surface around;
    around.create(picture.width() + 2, picture.height() + 2);
    around.fill(key);
    picture.blitTo(around, 1, 1);
    std::vector<std::array<std::int32_t, 2>> open = {{0, 0}};
    while (!open.empty()) {
        const auto [x, y] = open.back();
        open.pop_back();
        if (x < 0 || y < 0 || x >= around.width() || y >= around.height() || around.pixelAt(x, y) != key)
            continue;
        around.fillRect(x, y, x, y, static_cast<Pixel>(~key));
        open.insert(open.end(), {{x - 1, y}, {x + 1, y}, {x, y - 1}, {x, y + 1}});
    }
    return std::count(around.pixels(), around.pixels() + around.pixelCount(), key);
}

TEST(Data, StaysSmall)
{
    std::uintmax_t bytes = 0;
    for (const auto &file : std::filesystem::directory_iterator(kFolder))
        bytes += file.file_size();
    EXPECT_LT(bytes, 1024u * 1024u);
}

TEST(Data, HasPicturesOfTheSizeOfTheirPlace)
{
    struct Place {
        std::string file;
        std::int32_t width, height, spareWidth = 0, spareHeight = 0;
    };
    std::vector<Place> places = {{"nuke.png", 33 - 7, 320 - 296, 6, 6},
                                 {"menu.png", 240 - 210, 320 - 290},
                                 {"menu_left.png", 61, 30, 16, 6},
                                 {"menu_right.png", 240 - 180, 30, 16, 6},
                                 {"satellite.png", 30, 30, 6, 6}};
    for (const char *file : {"bg.jpg", "menu.jpg", "game_over.jpg", "shop.png"})
        places.push_back({file, 240, 320});
    for (const int side : {16, 32, 48, 64, 128, 256})
        places.push_back({"icon-" + std::to_string(side) + ".png", side, side});
    for (const auto &[file, width, height, spareWidth, spareHeight] : places) {
        const Surface picture = pictureOf(file);
        EXPECT_TRUE(picture.width() <= width && picture.width() >= width - spareWidth) << file;
        EXPECT_TRUE(picture.height() <= height && picture.height() >= height - spareHeight) << file;
    }
}

/// No pixel may become the key only when it is packed, or show a mixture with magenta at an edge.
void expectPureKey(const std::string &file, Pixel key)
{
    platform::common::Picture picture;
    ASSERT_TRUE(platform::common::decodePicture(kFolder + file, picture)) << file;
    for (std::int32_t i = 0; i < picture.width * picture.height; ++i) {
        const std::uint8_t *bgr = &picture.pixels[static_cast<std::size_t>(i) * 4];
        const int exact = bgr[2] << 16 | bgr[1] << 8 | bgr[0];
        const bool isKey = exact == (key == kMagenta ? 0xFF00FF : 0);
        const bool isMixed = key == kMagenta && std::min(bgr[2], bgr[0]) - bgr[1] >= 48;
        EXPECT_TRUE(isKey || (packColour(bgr[2], bgr[1], bgr[0]) != key && !isMixed)) << file << ": " << i;
    }
}

TEST(Data, KeepsTheKeysColourToTheKey)
{
    for (const std::string &file : kBlackStrips)
        expectPureKey(file, kBlack);
    expectPureKey("satellite.png", kBlack);
    for (const char *file : {"explosion.png", "font.png", "font_big.png", "menu_left.png", "menu_right.png"})
        expectPureKey(file, kMagenta);
}

TEST(Data, LeavesNoHolesInSolidThings)
{
    for (const char *file : {"satellite.png", "nuke.png", "menu.png"})
        EXPECT_EQ(holes(pictureOf(file), pictureOf(file).pixelAt(0, 0)), 0) << file;
    for (const std::string &file : kBlackStrips) {
        for (const Surface &frame : framesOf(file))
            EXPECT_EQ(holes(frame, kBlack), 0) << file;
    }
}

TEST(Data, FitsTheTexts)
{
    const BitmapFont &font = program().state().font, &bigFont = program().state().bigFont;
    EXPECT_GT(font.glyph(u'|')->width() * bigFont.glyph(u'z')->width(), 0)
        << "the last character has no glyph";
    EXPECT_LE(font.glyph(u'A')->height(), 10);
    EXPECT_TRUE(bigFont.glyph(u'A')->height() >= 18 && bigFont.glyph(u'A')->height() <= 20);
    for (const char16_t digit : std::u16string(u"123456789"))
        EXPECT_EQ(font.glyph(digit)->width(), font.glyph(u'0')->width()) << int{digit};
    for (const char16_t *row : {u"Time attack", u"Main menu", u"Sound off", u"New game", u"Campaign"})
        EXPECT_LE(bigFont.textWidth(row), 180 - 61);
    for (const char16_t *text : {u"You survived for 86400 seconds", u"Asteroids destroyed: 100000",
                                 u"Click here to continue", u"EARTH HAS BEEN DESTROYED"})
        EXPECT_LE(font.textWidth(text), 236);
    const std::int32_t halfClock = font.textWidth(u"59:59") / 2 + 1;
    EXPECT_LT(10 + font.textWidth(u"99"), 120 - halfClock);
    EXPECT_GT(240 - font.textWidth(u"1000000$"), 120 + halfClock);
}

TEST(Data, IsDarkUnderTextsAndBrightWhereAsteroidsStrike)
{
    const struct {
        const char *file;
        std::int32_t left, top, right, bottom;
        int least, most; ///< Brightness.
    } kPlaces[] = {{"bg.jpg", 0, 0, 239, 10, 0, 24},
                   {"bg.jpg", 0, 160, 239, 170, 0, 24},
                   {"game_over.jpg", 30, 220, 209, 290, 0, 24},
                   {"menu.jpg", 61, 100, 179, 190, 0, 24},
                   {"bg.jpg", 0, 265, 5, 269, 0, 30},
                   {"bg.jpg", 0, 285, 5, 289, 45, 255}};
    for (const auto &[file, left, top, right, bottom, least, most] : kPlaces) {
        const Surface picture = pictureOf(file);
        int sum = 0;
        for (std::int32_t y = top; y <= bottom; ++y) {
            for (std::int32_t x = left; x <= right; ++x)
                sum += brightness(picture.pixelAt(x, y));
        }
        const int light = sum / ((right - left + 1) * (bottom - top + 1));
        EXPECT_TRUE(light >= least && light <= most) << file << " " << top << ": " << light;
    }
}

TEST(Data, HoldsTheTextsOfTheShopInItsBoxes)
{
    const_cast<GameState &>(program().state()).player.money = 1000000;
    program().application().setScreen("SHOP");
    Screen &shop = *program().application().currentScreen();
    const Surface empty = pictureOf("shop.png");
    for (const auto &[tapX, tapY] : {std::array<std::uint16_t, 2>{60, 40}, {140, 40}, {60, 70}, {140, 70}}) {
        shop.pointerUp(tapX, tapY);
        Surface full;
        full.create(240, 320);
        shop.render(full);
        for (std::int32_t i = 0; i < full.pixelCount(); ++i) {
            const Pixel plain = empty.pixels()[i], pixel = full.pixels()[i];
            const bool isText = pixel != plain && pixel != kRed;
            EXPECT_TRUE(!isText || (i % 240 <= 236 && brightness(plain) < 24)) << i % 240 << ", " << i / 240;
        }
    }
}

TEST(Data, BlastsLoudAndWithoutClicks)
{
    std::ifstream stream(kFolder + "explosion.wav", std::ios::binary);
    const std::string wav{std::istreambuf_iterator<char>(stream), {}};
    const auto numberAt = [&wav](std::size_t offset, std::size_t size) {
        std::uint32_t number = 0;
        for (std::size_t i = size; i-- > 0;) // the lowest byte is the first
            number = number << 8 | static_cast<std::uint8_t>(wav.at(offset + i));
        return number;
    };
    ASSERT_EQ(wav.substr(8, 8) + wav.substr(36, 4), "WAVEfmt data");
    const std::uint32_t rate = numberAt(24, 4), size = numberAt(40, 4);
    EXPECT_EQ(numberAt(20, 4), 0x10001u) << "not PCM, or not mono";
    EXPECT_EQ(numberAt(34, 2), 16u) << "bits";
    EXPECT_GE(rate, 22050u);
    EXPECT_EQ(wav.size(), 44 + size);
    EXPECT_TRUE(size >= rate * 2 && size <= rate * 3) << size; // 1 to 1.5 s
    std::vector<int> loudness;
    for (std::uint32_t i = 0; i < size; i += 2)
        loudness.push_back(std::abs(static_cast<std::int16_t>(numberAt(44 + i, 2))));
    EXPECT_GT(*std::ranges::max_element(loudness), 16000);
    EXPECT_LT(loudness.front(), 300);
    EXPECT_LT(*std::max_element(loudness.end() - 100, loudness.end()), 300);
}

} // namespace
} // namespace mygame::tests
