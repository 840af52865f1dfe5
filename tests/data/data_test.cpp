/// What the pictures in data/ must keep for the game to work.
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "game/game_state.h"
#include "graphics/image_loading.h"
#include "platform/virtual/virtual_device.h"
#include "shell/startup.h"

namespace mygame::tests
{
namespace
{

/// The whole program beside the game's own files. One for the process: what has subscribed stays subscribed.
Program &program()
{
    static auto *device = new platform::VirtualDevice;
    device->dataFolder = DATA_FOLDER;
    platform::useDevice(*device);
    static auto *program = new Program;
    return *program;
}

template <class Picture, class... Arguments> Picture loaded(const std::string &file, Arguments... arguments)
{
    program();
    Picture picture;
    EXPECT_TRUE(picture.load(dataFilePath({file.begin(), file.end()}), arguments...)) << file;
    return picture;
}

TEST(Data, HasPicturesOfTheSizeOfTheirPlaceInLessThanAMegabyte)
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
        const auto picture = loaded<Surface>(file);
        EXPECT_TRUE(picture.width() <= width && picture.width() >= width - spareWidth) << file;
        EXPECT_TRUE(picture.height() <= height && picture.height() >= height - spareHeight) << file;
    }
    std::uintmax_t bytes = 0;
    for (const auto &file : std::filesystem::directory_iterator(DATA_FOLDER))
        bytes += file.file_size();
    EXPECT_LT(bytes, 1024u * 1024u);
}

TEST(Data, FitsTheTexts)
{
    const BitmapFont &font = program().state().font, &bigFont = program().state().bigFont;
    EXPECT_LE(font.glyph(u'A')->height(), 10);
    EXPECT_TRUE(bigFont.glyph(u'A')->height() >= 18 && bigFont.glyph(u'A')->height() <= 20);
    for (const char16_t digit : std::u16string_view(u"123456789"))
        EXPECT_EQ(font.glyph(digit)->width(), font.glyph(u'0')->width()) << int{digit};
    for (const char16_t *row : {u"Time attack", u"Main menu", u"Sound off", u"New game", u"Campaign"})
        EXPECT_LE(bigFont.textWidth(row), 180 - 61);
    for (const char16_t *text : {u"You survived for 86400 seconds", u"Asteroids destroyed: 100000"})
        EXPECT_LE(font.textWidth(text), 236);
    const std::int32_t halfClock = font.textWidth(u"59:59") / 2 + 1;
    EXPECT_LT(10 + font.textWidth(u"99"), 120 - halfClock);
    EXPECT_GT(240 - font.textWidth(u"1000000$"), 120 + halfClock);
}

} // namespace
} // namespace mygame::tests
