#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

/// What can be bought, with the icon's inside and frame.
constexpr struct Offer {
    std::uint16_t x, y;
    std::int32_t price;
    std::int32_t left, top, right, bottom;
    const char16_t *priceText;
    const char16_t *texts[4];
} kOffers[] = {
    {28,
     28,
     1000,
     28,
     25,
     92,
     51,
     u"$1000",
     {u"Repair structural damages", u"All the damages will be repaired.", u"", u""}},
    {98,
     53,
     1000,
     106,
     25,
     170,
     51,
     u"$1000",
     {u"Missile slot", u"One more missile slot means", u"you can fire more files at the", u"same time."}},
    {97,
     54,
     2000,
     28,
     56,
     92,
     82,
     u"$2000",
     {u"Nuke", u"You can detonate nuke and get", u"rid of all enemies and their", u"missiles."}},
    {169,
     80,
     2000,
     106,
     56,
     170,
     82,
     u"$2000",
     {u"Missile propulsion system", u"Your scientists will improve your", u"missiles' propulsion system",
      u"making them faster."}}};

class ShopScreenTest : public GameTest
{
protected:
    ShopScreenTest()
    {
        play(GameMode::Campaign);
        application.setScreen("SHOP");
    }

    Surface expectedWith(const Offer *offer, const char16_t *money) const
    {
        Surface picture = blankScreen();
        const auto centre = [&](const char16_t *text, std::int32_t x, std::int32_t y) {
            picture.drawText(state.font, text, x, y, TextAlign::AlignCentre);
        };
        centre(money, 178, 127);
        centre(u"shop", 120, 2);
        centre(u"price", 37, 100);
        centre(u"money", 203, 100);
        centre(u"description", 85, 170);
        if (!offer)
            return picture;
        centre(offer->priceText, 57, 127);
        for (std::int32_t line = 0; line < 4; ++line)
            picture.drawText(state.font, offer->texts[line], 50, 190 + 10 * line, TextAlign::AlignLeft);
        picture.drawRect(offer->left, offer->top, offer->right, offer->bottom, kRed);
        return picture;
    }

    void buy() { tap(15, 301); }

    /// What purchases change.
    std::vector<std::int32_t> goods() const
    {
        return {state.player.health, state.player.missileSlots, state.player.nukes, state.missileTravelTime};
    }
};

TEST_F(ShopScreenTest, ShowsWhatIsSelected)
{
    state.player.money = 3500;
    EXPECT_EQ(difference(picture(), expectedWith(nullptr, u"$3500")), "");
    for (const Offer &offer : kOffers) {
        tap(offer.x, offer.y);
        EXPECT_EQ(difference(picture(), expectedWith(&offer, u"$3500")), "") << offer.x;
    }
    for (const auto &[x, y] : {std::pair{27, 40}, {170, 40}, {100, 27}, {100, 81}})
        tap(static_cast<std::uint16_t>(x), static_cast<std::uint16_t>(y));
    EXPECT_EQ(difference(picture(), expectedWith(&kOffers[3], u"$3500")), "") << "edges do not count";
    application.setScreen("SHOP");
    EXPECT_EQ(difference(picture(), expectedWith(nullptr, u"$3500")), "") << "each visit begins anew";
}

TEST_F(ShopScreenTest, SellsForTheWholePriceOnly)
{
    const std::vector<std::vector<std::int32_t>> kBought = {
        {100, 1, 0, 2000}, {100, 2, 0, 2000}, {100, 2, 1, 2000}, {100, 2, 1, 1800}};
    state.player.money = 9999;
    buy(); // nothing is selected
    EXPECT_EQ(state.player.money, 9999);
    state.player.health = 10;
    std::vector<std::int32_t> before = goods();
    for (std::size_t i = 0; i < std::size(kOffers); ++i) {
        tap(kOffers[i].x, kOffers[i].y);
        state.player.money = kOffers[i].price - 1;
        buy();
        EXPECT_EQ(goods(), before);
        state.player.money = kOffers[i].price + 500;
        buy();
        buy(); // the rest is too little
        EXPECT_EQ(goods(), kBought[i]);
        EXPECT_EQ(state.player.money, 500);
        before = goods();
    }
}

TEST_F(ShopScreenTest, WearsThePropulsionDownToNothing)
{
    tap(kOffers[3].x, kOffers[3].y);
    state.player.money = 120000;
    std::vector<std::int32_t> times;
    for (int i = 0; i < 10; ++i) {
        buy();
        times.push_back(state.missileTravelTime);
    }
    EXPECT_EQ(times, (std::vector<std::int32_t>{1800, 1620, 1458, 1312, 1180, 1062, 955, 859, 773, 695}));
    for (int i = 10; i < 55; ++i)
        buy();
    EXPECT_EQ(state.missileTravelTime, 1);
    for (int i = 55; i < 60; ++i)
        buy();
    EXPECT_EQ(state.missileTravelTime, 0);
    EXPECT_EQ(state.player.money, 0);
    application.setScreen("GAME");
    tap(100, 100);
    frame();
    EXPECT_TRUE(state.missiles.empty());
    EXPECT_EQ(state.explosions.size(), 1u);
}

TEST_F(ShopScreenTest, HasItsButtonsInTheBottomStrip)
{
    tap(kOffers[0].x, kOffers[0].y);
    for (const auto &[x, y, bought, left] : {std::tuple{14, 290, false, false},
                                             {15, 279, true, false},
                                             {111, 301, true, false},
                                             {112, 290, false, false},
                                             {60, 278, false, false},
                                             {60, 302, false, false},
                                             {120, 290, false, false},
                                             {225, 290, false, false},
                                             {121, 278, false, false},
                                             {121, 279, false, true},
                                             {224, 301, false, true},
                                             {224, 302, false, false}}) {
        state.player.money = 1000;
        tap(static_cast<std::uint16_t>(x), static_cast<std::uint16_t>(y));
        EXPECT_EQ(state.player.money == 0, bought) << x << ' ' << y;
        EXPECT_EQ(isCurrent("GAME"), left) << x << ' ' << y;
        if (left)
            application.setScreen("SHOP");
        tap(kOffers[0].x, kOffers[0].y);
    }
}

} // namespace
} // namespace mygame::tests
