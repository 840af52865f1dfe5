#include <algorithm>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "screens/menu_listener.h"
#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

using Texts = std::vector<std::u16string>;
using Widths = std::pair<std::ptrdiff_t, std::ptrdiff_t>;

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
    MenuWidgetTest() { menu.setup(state.bigFont, filled(60, kRed), filled(50, kGreen)); }

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

    /// How many pixels of the left and of the right caps are in sight at the top of the row at y = 145.
    Widths widths() const
    {
        Surface target;
        target.create(240, 320);
        menu.render(target);
        const auto row = std::span(target.pixels() + 145 * 240, 240);
        return {std::ranges::count(row, kRed), std::ranges::count(row, kGreen)};
    }

    MenuWidget menu;
    Texts chosen;
};

TEST_F(MenuWidgetTest, SlidesInAndOut)
{
    const Texts rows = {u"Easy", u"Medium", u"Hard"};
    open(rows);
    EXPECT_EQ(widths(), Widths(0, 0));
    update(150);
    EXPECT_EQ(widths(), Widths(30, 25));
    update(149);
    EXPECT_EQ(widths(), Widths(59, 50)) << "240 - 59 / 60 * 50 is 190.8";
    menu.onPointer(120, 160); // still opening
    update(1);
    EXPECT_EQ(widths(), Widths(60, 50));
    menu.onPointer(120, 160);
    menu.onPointer(120, 190); // already closing
    update(150);
    EXPECT_EQ(widths(), Widths(30, 25));
    update(149);
    EXPECT_EQ(widths(), Widths(1, 1));
    EXPECT_EQ(chosen, Texts());
    update(1);
    EXPECT_EQ(chosen, Texts{u"Medium"});
    EXPECT_EQ(widths(), Widths(0, 0));
    open(rows);
    update(300);
    open(rows);
    EXPECT_EQ(widths(), Widths(0, 0)) << "anew, from whatever state";
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

TEST_F(MenuWidgetTest, IsOutOfSightWhileItsPlaceWraps)
{
    constexpr std::uint32_t kTenHours = 36000000; // times 60 pixels wraps
    open({u"a"});
    update(kTenHours);
    EXPECT_EQ(widths(), Widths(0, 0));
    update(kTenHours);
    menu.onPointer(120, 160);
    update(kTenHours);
    EXPECT_EQ(widths(), Widths(0, 0));
    EXPECT_EQ(chosen, Texts());
    update(kTenHours);
    EXPECT_EQ(chosen, Texts{u"a"});
}

} // namespace
} // namespace mygame::tests
