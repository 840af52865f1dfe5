#include "screens/shop_screen.h"

#include "game/formatted_text.h"
#include "game/game_state.h"
#include "graphics/image_loading.h"
#include "graphics/screen_size.h"
#include "screens/screen_names.h"
#include "shell/application.h"

namespace mygame
{
namespace
{

struct Rect {
    std::int32_t left, top, right, bottom;
};

/// True strictly inside: an edge does not count.
bool isInside(const Rect &rect, std::int32_t x, std::int32_t y)
{
    return x > rect.left && x < rect.right && y > rect.top && y < rect.bottom;
}

constexpr Rect kBackZone = {120, 278, 225, 302};
constexpr Rect kBuyZone = {14, 278, 112, 302};
constexpr Rect kItemZone = {27, 27, 170, 81};
/// Items are told apart by where a tap lies to this point. Kept: the gaps between the icons belong to them,
/// their outermost rows and columns partly do not.
constexpr std::int32_t kItemSplitX = 98;
constexpr std::int32_t kItemSplitY = 54;

constexpr double kPropulsionFactor = 0.9;

struct Offer {
    ShopItem item;
    std::int32_t price; ///< Dollars.
    Rect frame;         ///< Of the item's icon, corners included.
    void (*apply)(GameState &state);
    const char16_t *name;
    const char16_t *description[3];
};

constexpr Offer kOffers[] = {
    {ShopItem::Repair,
     1000,
     {28, 25, 92, 51},
     [](GameState &state) { state.player.health = Player::kFullHealth; },
     u"Repair structural damages",
     {u"All the damages will be repaired.", u"", u""}},
    {ShopItem::MissileSlot,
     1000,
     {106, 25, 170, 51},
     [](GameState &state) { ++state.player.missileSlots; },
     u"Missile slot",
     {u"One more missile slot means", u"you can fire more files at the", u"same time."}},
    {ShopItem::Nuke,
     2000,
     {28, 56, 92, 82},
     [](GameState &state) { ++state.player.nukes; },
     u"Nuke",
     {u"You can detonate nuke and get", u"rid of all enemies and their", u"missiles."}},
    {ShopItem::Propulsion,
     2000,
     {106, 56, 170, 82},
     [](GameState &state) {
         state.missileTravelTime = static_cast<Ms>(state.missileTravelTime * kPropulsionFactor);
     },
     u"Missile propulsion system",
     {u"Your scientists will improve your", u"missiles' propulsion system", u"making them faster."}},
};

/// Null while nothing is selected.
const Offer *findOffer(ShopItem item)
{
    for (const Offer &offer : kOffers) {
        if (offer.item == item)
            return &offer;
    }
    return nullptr;
}

struct Label {
    const char16_t *text;
    std::int32_t centreX;
    std::int32_t y;
};

constexpr Label kLabels[] = {
    {u"shop", kScreenCentreX, 2},
    {u"price", 37, 100},
    {u"money", 203, 100},
    {u"description", 85, 170},
};

constexpr std::int32_t kMoneyX = 178;
constexpr std::int32_t kPriceX = 57;
constexpr std::int32_t kAmountY = 127;
constexpr std::int32_t kTextX = 50;
constexpr std::int32_t kNameY = 190;
constexpr std::int32_t kDescriptionY = 200;
constexpr std::int32_t kLinePitch = 10;

} // namespace

ShopScreen::ShopScreen() { background_.load(dataFilePath(u"shop.png")); }

void ShopScreen::link(GameState *state, const BitmapFont &textFont)
{
    gameState_ = state;
    font_ = textFont;
}

bool ShopScreen::activate(Application *application)
{
    application_ = application;
    selected_ = ShopItem::None;
    return true;
}

void ShopScreen::render(Surface &target)
{
    background_.blitTo(target, 0, 0);
    renderLabels(target);
    renderSelection(target);
}

void ShopScreen::renderAmount(Surface &target, std::int32_t dollars, std::int32_t centreX) const
{
    target.drawText(font_, formatted(u"$%d", dollars), centreX, kAmountY, TextAlign::AlignCentre);
}

void ShopScreen::renderLabels(Surface &target) const
{
    renderAmount(target, gameState_->player.money, kMoneyX);
    for (const Label &label : kLabels)
        target.drawText(font_, label.text, label.centreX, label.y, TextAlign::AlignCentre);
}

void ShopScreen::renderSelection(Surface &target) const
{
    const Offer *offer = findOffer(selected_);
    if (!offer)
        return;
    renderAmount(target, offer->price, kPriceX);
    target.drawText(font_, offer->name, kTextX, kNameY, TextAlign::AlignLeft);
    std::int32_t y = kDescriptionY;
    for (const char16_t *line : offer->description) {
        target.drawText(font_, line, kTextX, y, TextAlign::AlignLeft);
        y += kLinePitch;
    }
    target.drawRect(offer->frame.left, offer->frame.top, offer->frame.right, offer->frame.bottom, kRed);
}

void ShopScreen::pointerUp(std::uint16_t x, std::uint16_t y)
{
    if (isInside(kBackZone, x, y))
        application_->setScreen(screen_names::kGame);
    else if (isInside(kBuyZone, x, y))
        buy();
    else if (isInside(kItemZone, x, y))
        select(x, y);
}

void ShopScreen::select(std::int32_t x, std::int32_t y)
{
    if (y < kItemSplitY)
        selected_ = x < kItemSplitX ? ShopItem::Repair : ShopItem::MissileSlot;
    else
        selected_ = x < kItemSplitX ? ShopItem::Nuke : ShopItem::Propulsion;
}

void ShopScreen::buy()
{
    const Offer *offer = findOffer(selected_);
    if (!offer || gameState_->player.money < offer->price)
        return;
    // Kept: without an upper limit, and an untouched Earth is repaired for the full price.
    offer->apply(*gameState_);
    gameState_->player.money -= offer->price;
}

} // namespace mygame
