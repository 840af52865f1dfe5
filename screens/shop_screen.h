#pragma once

#include <cstdint>

#include "graphics/bitmap_font.h"
#include "graphics/surface.h"
#include "shell/screen.h"

namespace mygame
{

struct GameState;

enum class ShopItem : std::int32_t {
    None = 1,
    Repair = 2,
    MissileSlot = 3,
    Nuke = 4,
    Propulsion = 5,
};

/// The shop between two waves of a campaign. What can be tapped is painted in its picture.
class ShopScreen : public Screen
{
public:
    /// Loads the picture.
    ShopScreen();

    /// Sets the state that purchases change, and the font of the texts. Once, before the first activation.
    void link(GameState *state, const BitmapFont &textFont);

    void render(Surface &target) override;
    void pointerUp(std::uint16_t x, std::uint16_t y) override;
    bool activate(Application *application) override;

private:
    void renderAmount(Surface &target, std::int32_t dollars, std::int32_t centreX) const;
    void renderLabels(Surface &target) const;
    void renderSelection(Surface &target) const;
    void select(std::int32_t x, std::int32_t y);
    void buy();

    Application *application_ = nullptr;
    GameState *gameState_ = nullptr;
    Surface background_;
    BitmapFont font_;
    ShopItem selected_ = ShopItem::None;
};

} // namespace mygame
