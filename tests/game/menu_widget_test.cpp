#include <string>
#include <vector>

#include "screens/menu_listener.h"
#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

using Texts = std::vector<std::u16string>;

Surface filled(std::int32_t width, Pixel colour)
{
    Surface surface;
    surface.create(width, 29);
    surface.fill(colour);
    return surface;
}

class MenuWidgetTest : public GameTest, public MenuListener
{
protected:
    MenuWidgetTest() { menu.setup(state.bigFont, leftCap, rightCap); }

    void itemChosen(std::u16string text) override { chosen.push_back(text); }

    void open(const Texts &rows)
    {
        menu.open(this);
        for (const std::u16string &row : rows)
            menu.addItem(row);
    }

    void update(std::uint32_t afterMs)
    {
        device.advance(afterMs);
        menu.update(device.tick());
    }

    /// @return the difference to the rows with their caps and texts at these places.
    std::string differs(const Texts &rows, std::int32_t left, std::int32_t right, std::int32_t textX) const
    {
        Surface expected = blankScreen();
        auto y = 160 - 15 * static_cast<std::int32_t>(rows.size());
        for (const std::u16string &row : rows) {
            rightCap.blitTo(expected, right, y);
            leftCap.blitTo(expected, left, y);
            expected.drawText(state.bigFont, row, textX, y + 6, TextAlign::AlignCentre);
            y += 30;
        }
        Surface actual = blankScreen();
        menu.render(actual);
        return difference(actual, expected);
    }

    const Surface leftCap = filled(60, kRed);
    const Surface rightCap = filled(50, kGreen);
    MenuWidget menu;
    Texts chosen;
};

TEST_F(MenuWidgetTest, SlidesInAndOut)
{
    open({u"Easy", u"Medium", u"Hard"});
    const Texts rows = {u"Easy", u"Medium", u"Hard"};
    EXPECT_EQ(differs(rows, -60, 240, 60), "");
    update(150);
    EXPECT_EQ(differs(rows, -30, 215, 90), "");
    update(149);
    EXPECT_EQ(differs(rows, -1, 190, 119), "") << "240 - 59 / 60 * 50 is 190.8";
    menu.onPointer(120, 160); // still opening
    update(1);
    EXPECT_EQ(differs(rows, 0, 190, 120), "");
    menu.onPointer(120, 160);
    menu.onPointer(120, 190); // already closing
    update(150);
    EXPECT_EQ(differs(rows, -30, 215, 90), "");
    update(149);
    EXPECT_EQ(differs(rows, -59, 239, 61), "");
    EXPECT_EQ(chosen, Texts());
    update(1);
    EXPECT_EQ(chosen, (Texts{u"Medium"}));
    EXPECT_EQ(differs({}, 0, 0, 0), "");
    update(300);
    EXPECT_EQ(chosen.size(), 1u);
    open(rows);
    update(300);
    open(rows);
    EXPECT_EQ(differs(rows, -60, 240, 60), "") << "anew, from whatever state";
}

TEST_F(MenuWidgetTest, TakesTapsInItsZoneOnly)
{
    constexpr struct {
        std::int32_t x, y;
        const char16_t *row;
    } kTaps[] = {{60, 100, u""},  {61, 100, u"a"}, {61, 129, u"a"}, {120, 130, u"b"},   {179, 219, u"d"},
                 {180, 219, u""}, {120, 220, u""}, {120, 99, u""},  {65535, 65535, u""}};
    for (const auto &[x, y, row] : kTaps) {
        open({u"a", u"b", u"c", u"d"});
        update(300);
        menu.onPointer(x, y);
        chosen.clear();
        update(300);
        EXPECT_EQ(chosen, *row ? Texts{row} : Texts()) << x << ' ' << y;
    }
}

TEST_F(MenuWidgetTest, SurvivesHoursInTheBackground)
{
    constexpr std::uint32_t kTenHours = 36000000; // times 60 pixels wraps
    open({u"a"});
    update(kTenHours);
    EXPECT_EQ(differs({}, 0, 0, 0), "");
    update(kTenHours);
    menu.onPointer(120, 160);
    update(kTenHours);
    EXPECT_EQ(differs({}, 0, 0, 0), "");
    EXPECT_EQ(chosen, Texts());
    update(kTenHours);
    EXPECT_EQ(chosen, Texts{u"a"});
}

} // namespace
} // namespace mygame::tests
