/// What the fonts in data/ must keep for the texts to fit.
#include <string_view>

#include <gtest/gtest.h>

#include "game/game_state.h"
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
