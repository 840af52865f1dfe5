/// What the pictures and the sound in data/ must keep for the game to work.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
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

const std::vector<std::string> kRocks = {"asteroid.png", "asteroid2.png", "asteroid3.png", "asteroid4.png"};

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

/// Calls visit(x, y, pixel) for every pixel.
template <class Visitor> void visitPixels(const Surface &surface, Visitor visit)
{
    for (std::int32_t i = 0; i < surface.pixelCount(); ++i)
        visit(i % surface.width(), i / surface.width(), surface.pixels()[i]);
}

/// Corners included.
struct Rect {
    std::int32_t left, top, right, bottom;
};

/// The average of measure(x, y).
template <class Measure> int average(const Rect &rect, Measure measure)
{
    int sum = 0, count = 0;
    for (std::int32_t y = rect.top; y <= rect.bottom; ++y) {
        for (std::int32_t x = rect.left; x <= rect.right; ++x, ++count)
            sum += measure(x, y);
    }
    return sum / count;
}

struct Channels {
    int red, green, blue; ///< 0 to 255
};

Channels channelsOf(Pixel pixel) { return {pixel >> 11 << 3, (pixel >> 5 & 63) << 2, (pixel & 31) << 3}; }

int brightness(Pixel pixel)
{
    const auto [red, green, blue] = channelsOf(pixel);
    return (3 * red + 6 * green + blue) / 10;
}

/// How far two colours are apart in the channel in which they differ most.
int distance(Pixel a, Pixel b)
{
    const Channels p = channelsOf(a), q = channelsOf(b);
    return std::max({std::abs(p.red - q.red), std::abs(p.green - q.green), std::abs(p.blue - q.blue)});
}

int glyphRuns(const Surface &strip)
{
    const Pixel marker = strip.pixelAt(0, 0);
    int runs = 1;
    for (std::int32_t x = 1; x < strip.width(); ++x)
        runs += strip.pixelAt(x, 0) == marker && strip.pixelAt(x - 1, 0) != marker;
    return runs;
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

/// Pixels of a file that become the key only when they are packed: parts of the object that would be lost.
int lostPixels(const std::string &file, Pixel key)
{
    platform::common::Picture picture;
    EXPECT_TRUE(platform::common::decodePicture(kFolder + file, picture)) << file;
    const int exact = key == kMagenta ? 0xFF00FF : 0;
    int count = 0;
    for (std::int32_t i = 0; i < picture.width * picture.height; ++i) {
        const std::uint8_t *bgr = &picture.pixels[static_cast<std::size_t>(i) * 4];
        count += packColour(bgr[2], bgr[1], bgr[0]) == key && (bgr[2] << 16 | bgr[1] << 8 | bgr[0]) != exact;
    }
    return count;
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
    const struct {
        const char *file;
        std::int32_t width, height, spareWidth, spareHeight;
    } kPlaces[] = {{"bg.jpg", 240, 320, 0, 0},
                   {"menu.jpg", 240, 320, 0, 0},
                   {"game_over.jpg", 240, 320, 0, 0},
                   {"shop.png", 240, 320, 0, 0},
                   {"nuke.png", 33 - 7, 320 - 296, 6, 6},
                   {"menu.png", 240 - 210, 320 - 290, 0, 0},
                   {"menu_left.png", 61, 30, 16, 6},
                   {"menu_right.png", 240 - 180, 30, 16, 6},
                   {"satellite.png", 30, 30, 6, 6}};
    for (const auto &[file, width, height, spareWidth, spareHeight] : kPlaces) {
        const Surface picture = pictureOf(file);
        EXPECT_TRUE(picture.width() <= width && picture.width() >= width - spareWidth) << file;
        EXPECT_TRUE(picture.height() <= height && picture.height() >= height - spareHeight) << file;
    }
}

TEST(Data, KeepsTheKeysColourToTheKey)
{
    for (const char *file :
         {"asteroid.png", "asteroid2.png", "asteroid3.png", "asteroid4.png", "missile.png", "satellite.png"})
        EXPECT_EQ(lostPixels(file, kBlack), 0) << file;
    for (const char *file :
         {"explosion.png", "font.png", "font_big.png", "menu_left.png", "menu_right.png"}) {
        EXPECT_EQ(lostPixels(file, kMagenta), 0) << file;
        visitPixels(pictureOf(file), [&](std::int32_t x, std::int32_t y, Pixel pixel) {
            const auto [red, green, blue] = channelsOf(pixel);
            EXPECT_TRUE(pixel == kMagenta || std::min(red, blue) - green < 40)
                << file << ": mixed with the key at " << x << ", " << y;
        });
    }
}

TEST(Data, LeavesNoHolesInSolidThings)
{
    for (const char *file : {"satellite.png", "nuke.png", "menu.png"})
        EXPECT_EQ(holes(pictureOf(file), pictureOf(file).pixelAt(0, 0)), 0) << file;
    EXPECT_EQ(holes(framesOf("missile.png").at(0), kBlack), 0);
    for (const std::string &file : kRocks) {
        for (const Surface &frame : framesOf(file))
            EXPECT_EQ(holes(frame, kBlack), 0) << file;
    }
}

/// How much light moves between two frames, seen in blocks of pixels so that grain does not count.
int change(const Surface &from, const Surface &to)
{
    constexpr std::int32_t kBlock = 4;
    int sum = 0;
    for (std::int32_t y = 0; y < from.height(); y += kBlock) {
        for (std::int32_t x = 0; x < from.width(); x += kBlock)
            sum +=
                std::abs(average({x, y, x + kBlock - 1, y + kBlock - 1}, [&](std::int32_t i, std::int32_t j) {
                    return brightness(from.pixelAt(i, j)) - brightness(to.pixelAt(i, j));
                }));
    }
    return sum;
}

TEST(Data, TumblesRocksWithoutAJump)
{
    for (const std::string &file : kRocks) {
        const std::vector<Surface> frames = framesOf(file);
        ASSERT_GE(frames.size(), 12u) << file;
        int largest = 0;
        for (std::size_t i = 1; i < frames.size(); ++i)
            largest = std::max(largest, change(frames[i - 1], frames[i]));
        EXPECT_LE(change(frames.back(), frames.front()), largest * 5 / 4) << file;
    }
}

TEST(Data, ShowsTheMissileBesideItsNumber)
{
    const std::vector<Surface> frames = framesOf("missile.png");
    ASSERT_GE(frames.size(), 1u);
    visitPixels(frames[0], [](std::int32_t x, std::int32_t y, Pixel pixel) {
        EXPECT_TRUE(pixel == kBlack || (x - 2 >= 0 && x - 2 < 10 && y - 2 >= 0)) << x << ", " << y;
    });
}

TEST(Data, FillsTheBlastRadiusAndClears)
{
    const std::vector<Surface> frames = framesOf("explosion.png");
    ASSERT_TRUE(frames.size() >= 16 && frames.size() <= 24) << frames.size();
    std::vector<int> percent;
    for (const Surface &frame : frames) {
        const std::int32_t middleX = frame.width() / 2, middleY = frame.height() / 2;
        int filled = 0;
        visitPixels(frame, [&](std::int32_t x, std::int32_t y, Pixel pixel) {
            filled += pixel != kMagenta && std::hypot(x - middleX, y - middleY) <= 28;
        });
        percent.push_back(filled * 100 / 2463); // of a circle of that radius
    }
    EXPECT_GE(*std::ranges::max_element(percent), 80);
    EXPECT_LE(percent.back(), 2);
}

TEST(Data, FitsTheTexts)
{
    const BitmapFont &font = program().state().font, &bigFont = program().state().bigFont;
    ASSERT_EQ(glyphRuns(pictureOf("font.png")), 91);
    ASSERT_EQ(glyphRuns(pictureOf("font_big.png")), 53);
    EXPECT_LE(font.glyph(u'A')->height(), 10);
    EXPECT_TRUE(bigFont.glyph(u'A')->height() >= 18 && bigFont.glyph(u'A')->height() <= 20);
    for (const char16_t digit : std::u16string_view(u"123456789"))
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
        Rect rect;
        int least, most; ///< Brightness.
    } kPlaces[] = {{"bg.jpg", {0, 0, 239, 10}, 0, 24},
                   {"bg.jpg", {0, 160, 239, 170}, 0, 24},
                   {"game_over.jpg", {30, 220, 209, 290}, 0, 24},
                   {"menu.jpg", {61, 100, 179, 190}, 0, 24},
                   {"bg.jpg", {0, 265, 5, 269}, 0, 30},
                   {"bg.jpg", {0, 285, 5, 289}, 45, 255},
                   {"bg.jpg", {60, 254, 65, 258}, 0, 30},
                   {"bg.jpg", {60, 273, 65, 277}, 45, 255},
                   {"bg.jpg", {110, 244, 115, 248}, 0, 30},
                   {"bg.jpg", {110, 262, 115, 266}, 45, 255}};
    for (const auto &[file, rect, least, most] : kPlaces) {
        const Surface picture = pictureOf(file);
        const auto lightAt = [&](std::int32_t x, std::int32_t y) {
            return brightness(picture.pixelAt(x, y));
        };
        const int light = average(rect, lightAt);
        EXPECT_TRUE(light >= least && light <= most) << file << " " << rect.top << ": " << light;
    }
}

TEST(Data, HoldsTheTextsOfTheShopInItsBoxes)
{
    const_cast<GameState &>(program().state()).player.money = 1000000;
    program().application().setScreen("SHOP");
    Screen &shop = *program().application().currentScreen();
    for (const auto &[tapX, tapY] : {std::array<std::uint16_t, 2>{60, 40}, {140, 40}, {60, 70}, {140, 70}}) {
        shop.pointerUp(tapX, tapY);
        Surface full;
        full.create(240, 320);
        shop.render(full);
        visitPixels(pictureOf("shop.png"), [&](std::int32_t x, std::int32_t y, Pixel pixel) {
            const bool isText = full.pixelAt(x, y) != pixel && full.pixelAt(x, y) != kRed;
            EXPECT_TRUE(!isText || (x <= 236 && brightness(pixel) < 24)) << x << ", " << y;
        });
    }
}

TEST(Data, PaintsTheShopsButtonsOnTheirTapZones)
{
    const Surface shop = pictureOf("shop.png");
    const auto edge = [&](const Rect &line, std::int32_t dx, std::int32_t dy) {
        return average(line, [&](std::int32_t x, std::int32_t y) {
            return distance(shop.pixelAt(x, y), shop.pixelAt(x + dx, y + dy));
        });
    };
    for (const auto &[left, top, right, bottom] : {Rect{15, 279, 111, 301}, {121, 279, 224, 301}}) {
        EXPECT_GE(edge({left, top, right, top}, 0, -1), 30) << left;
        EXPECT_GE(edge({left, bottom, right, bottom}, 0, 1), 30) << left;
        EXPECT_GE(edge({left, top, left, bottom}, -1, 0), 30) << left;
        EXPECT_GE(edge({right, top, right, bottom}, 1, 0), 30) << left;
    }
}

TEST(Data, LeavesTheLineFreeThatFramesAnItemOfTheShop)
{
    const Surface shop = pictureOf("shop.png");
    for (const auto &[left, top, right, bottom] :
         {Rect{28, 25, 92, 51}, {106, 25, 170, 51}, {28, 56, 92, 82}, {106, 56, 170, 82}}) {
        Surface framed = pictureOf("shop.png");
        framed.drawRect(left, top, right, bottom, kRed);
        const Pixel plain = shop.pixelAt(left, top);
        visitPixels(shop, [&](std::int32_t x, std::int32_t y, Pixel pixel) {
            EXPECT_TRUE(framed.pixelAt(x, y) == pixel || distance(pixel, plain) <= 8) << x << ", " << y;
        });
        const auto contrastAt = [&](std::int32_t x, std::int32_t y) {
            return distance(shop.pixelAt(x, y), plain);
        };
        EXPECT_GE(average({left + 4, top + 4, right - 4, bottom - 4}, contrastAt), 40) << left << ", " << top;
    }
}

std::string bytesOf(const std::string &file)
{
    std::ifstream stream(kFolder + file, std::ios::binary);
    EXPECT_TRUE(stream) << file;
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A number of `size` bytes, the lowest first.
std::uint32_t numberAt(const std::string &bytes, std::size_t offset, std::size_t size)
{
    std::uint32_t number = 0;
    for (std::size_t i = size; i-- > 0;)
        number = number << 8 | static_cast<std::uint8_t>(bytes.at(offset + i));
    return number;
}

TEST(Data, BlastsLoudAndWithoutClicks)
{
    const std::string wav = bytesOf("explosion.wav");
    ASSERT_EQ(wav.substr(8, 8) + wav.substr(36, 4), "WAVEfmt data");
    const std::uint32_t rate = numberAt(wav, 24, 4), size = numberAt(wav, 40, 4);
    EXPECT_EQ(numberAt(wav, 20, 4), 0x10001u) << "not PCM, or not mono";
    EXPECT_EQ(numberAt(wav, 34, 2), 16u) << "bits";
    EXPECT_GE(rate, 22050u);
    EXPECT_EQ(wav.size(), 44 + size);
    EXPECT_TRUE(size >= rate * 2 && size <= rate * 3) << size; // 1 to 1.5 s
    std::vector<int> loudness;
    for (std::uint32_t i = 0; i < size; i += 2)
        loudness.push_back(std::abs(static_cast<std::int16_t>(numberAt(wav, 44 + i, 2))));
    EXPECT_GT(*std::ranges::max_element(loudness), 16000);
    EXPECT_LT(loudness.front(), 300);
    EXPECT_LT(*std::max_element(loudness.end() - 100, loudness.end()), 300);
}

TEST(Data, HasItsIconInAllSizes)
{
    for (const int side : {16, 32, 48, 64, 128, 256}) {
        const Surface icon = pictureOf("icon-" + std::to_string(side) + ".png");
        EXPECT_TRUE(icon.width() == side && icon.height() == side) << side;
    }
    const std::string ico = bytesOf("icon.ico");
    ASSERT_EQ(numberAt(ico, 0, 4), 0x10000u) << "not an icon";
    std::vector<std::uint32_t> sides;
    for (std::uint32_t entry = 6; entry < 6 + 16 * numberAt(ico, 4, 2); entry += 16) {
        sides.push_back(numberAt(ico, entry, 1)); // a byte, so that 256 is 0
        EXPECT_LE(numberAt(ico, entry + 12, 4) + numberAt(ico, entry + 8, 4), ico.size()) << "cut short";
    }
    EXPECT_EQ(sides, (std::vector<std::uint32_t>{16, 32, 48, 64, 0}));
}

} // namespace
} // namespace mygame::tests
