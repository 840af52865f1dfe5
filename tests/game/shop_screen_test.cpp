#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

/// What can be bought: a tap that selects it, its price, its frame, and the player's goods after each of the
/// four was bought in turn.
constexpr struct {
    std::uint16_t x, y;
    std::int32_t price;
    std::int32_t left, top, right, bottom;
    std::int32_t health, slots, nukes, travelTime;
} kOffers[] = {{28, 28, 1000, 28, 25, 92, 51, 100, 1, 0, 2000},
               {98, 53, 1000, 106, 25, 170, 51, 100, 2, 0, 2000},
               {97, 54, 2000, 28, 56, 92, 82, 100, 2, 1, 2000},
               {169, 80, 2000, 106, 56, 170, 82, 100, 2, 1, 1800}};

class ShopScreenTest : public GameTest
{
protected:
    ShopScreenTest()
    {
        play(GameMode::Campaign);
        application.setScreen("SHOP");
    }

    void buy() { tap(15, 301); }
};

TEST_F(ShopScreenTest, FramesWhatIsSelected)
{
    const Surface without = picture();
    for (const auto &offer : kOffers) {
        Surface expected = blankScreen();
        expected.drawRect(offer.left, offer.top, offer.right, offer.bottom, kRed);
        tap(offer.x, offer.y);
        for (const auto &[x, y] : {std::pair{27, 40}, {170, 40}, {100, 27}, {100, 81}})
            tap(static_cast<std::uint16_t>(x), static_cast<std::uint16_t>(y)); // edges do not count
        const Surface actual = picture();
        for (std::int32_t y = 25; y <= 82; ++y) {
            for (std::int32_t x = 25; x <= 172; ++x)
                ASSERT_EQ(actual.pixelAt(x, y), expected.pixelAt(x, y)) << x << ' ' << y;
        }
    }
    application.setScreen("SHOP");
    EXPECT_EQ(difference(picture(), without), "") << "each visit begins anew";
}

TEST_F(ShopScreenTest, SellsForTheWholePriceOnly)
{
    state.player.money = 9999;
    buy();
    EXPECT_EQ(state.player.money, 9999) << "nothing is selected";
    state.player.health = 10;
    for (const auto &offer : kOffers) {
        tap(offer.x, offer.y);
        state.player.money = offer.price - 1;
        buy();
        EXPECT_EQ(state.player.money, offer.price - 1);
        state.player.money = offer.price + 500;
        buy();
        buy(); // the rest is too little
        EXPECT_EQ(state.player.money, 500);
        EXPECT_EQ(state.player.health, offer.health);
        EXPECT_EQ(state.player.missileSlots, offer.slots);
        EXPECT_EQ(state.player.nukes, offer.nukes);
        EXPECT_EQ(state.missileTravelTime, offer.travelTime);
    }
}

TEST_F(ShopScreenTest, WearsThePropulsionDownToNothing)
{
    tap(kOffers[3].x, kOffers[3].y);
    state.player.money = 120000;
    for (const std::int32_t travelTime : {1800, 1620, 1458, 1312, 1180, 1062, 955, 859, 773, 695}) {
        buy();
        EXPECT_EQ(state.missileTravelTime, travelTime);
    }
    for (int purchase = 11; purchase <= 60; ++purchase) {
        buy();
        EXPECT_EQ(state.missileTravelTime > 0, purchase < 56) << purchase;
    }
    EXPECT_EQ(state.player.money, 0);
    state.asteroids.clear();
    hang(1, 10, 10);
    application.setScreen("GAME");
    tap(100, 100);
    EXPECT_EQ(frame().substr(0, 47), "resume, fire 100 100, tick, launched, detonated");
    EXPECT_TRUE(state.missiles.empty());
}

TEST_F(ShopScreenTest, HasItsButtonsInTheBottomStrip)
{
    enum Effect { None, Buys, Leaves };
    constexpr struct {
        std::uint16_t x, y;
        Effect effect;
    } kTaps[] = {{14, 290, None},  {15, 279, Buys},    {111, 301, Buys},   {112, 290, None},
                 {60, 278, None},  {60, 302, None},    {120, 290, None},   {225, 290, None},
                 {121, 278, None}, {121, 279, Leaves}, {224, 301, Leaves}, {224, 302, None}};
    for (const auto &[x, y, effect] : kTaps) {
        application.setScreen("SHOP");
        tap(kOffers[0].x, kOffers[0].y);
        state.player.money = 1000;
        tap(x, y);
        EXPECT_EQ(state.player.money == 0, effect == Buys) << x << ' ' << y;
        EXPECT_EQ(isCurrent("GAME"), effect == Leaves) << x << ' ' << y;
    }
}

} // namespace
} // namespace mygame::tests
