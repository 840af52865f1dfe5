#include <string_view>

#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

using ShopScreenTest = GameTest;

TEST_F(ShopScreenTest, TakesTapsStrictlyInsideItsZones)
{
    constexpr struct {
        std::uint16_t x, y;
        std::string_view effect; ///< What a purchase after the tap buys, or the screen that it leads to.
    } kTaps[] = {{28, 28, "repair"}, {97, 53, "repair"},  {98, 53, "slot"},   {97, 54, "nuke"},
                 {98, 54, "thrust"}, {169, 80, "thrust"}, {27, 40, ""},       {170, 40, ""},
                 {100, 27, ""},      {100, 81, ""},       {14, 290, ""},      {112, 290, ""},
                 {60, 278, ""},      {60, 302, ""},       {120, 290, ""},     {225, 290, ""},
                 {121, 278, ""},     {224, 302, ""},      {121, 279, "GAME"}, {224, 301, "GAME"}};
    for (const auto &[x, y, effect] : kTaps) {
        play(GameMode::Campaign);
        state.player.money = 2000;
        state.player.health = 10;
        application.setScreen("SHOP");
        tap(x, y);
        EXPECT_EQ(isCurrent("GAME"), effect == "GAME") << x << ' ' << y;
        tap(15, 301); // buys
        EXPECT_EQ(state.player.health == 100, effect == "repair") << x << ' ' << y;
        EXPECT_EQ(state.player.missileSlots == 2, effect == "slot") << x << ' ' << y;
        EXPECT_EQ(state.player.nukes == 1, effect == "nuke") << x << ' ' << y;
        EXPECT_EQ(state.missileTravelTime == 1800, effect == "thrust") << x << ' ' << y;
    }
}

TEST_F(ShopScreenTest, WearsThePropulsionDownToNothing)
{
    play(GameMode::TimeAttack);
    state.asteroids.clear();
    application.setScreen("SHOP");
    tap(98, 54);
    state.player.money = 119999;
    for (int purchase = 1; purchase <= 60; ++purchase) {
        tap(15, 301); // buys
        EXPECT_EQ(state.missileTravelTime > 0, purchase < 56) << purchase;
    }
    EXPECT_EQ(state.player.money, 1999) << "one dollar too little for the last";
    application.setScreen("GAME");
    tap(100, 100);
    EXPECT_EQ(frame(), "resume, fire, tick, launched, detonated");
}

} // namespace
} // namespace mygame::tests
