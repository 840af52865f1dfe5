/// The game screen's picture: the world and, over it, what the player has to know.
#include "game/game_screen.h"

#include "game/formatted_text.h"
#include "game/game_state.h"
#include "graphics/screen_size.h"
#include "platform/clock.h"

namespace mygame
{
namespace
{

constexpr std::uint32_t kNukeFlashMs = 1000;

constexpr std::int32_t kTextY = 0;
constexpr std::int32_t kSlotsLeft = 10;
constexpr std::int32_t kMissileIcon = -2; ///< Both x and y.

} // namespace

void GameScreen::render(Surface &target)
{
    // Kept: over everything, the menu too. As an unsigned number, by which the 0 before the first nuke is
    // long ago, but not in the clock's first second.
    if (platform::GetTickCount() - nukeFlashStart_ < kNukeFlashMs) {
        target.fill(kWhite);
        return;
    }
    background_.blitTo(target, 0, 0);
    for (int i = 0; i < kButtonCount; ++i)
        buttonPictures_[i].blitTo(target, kButtons[i].topLeft.x, kButtons[i].topLeft.y);
    renderWorld(target);
    state_->player.drawPlayer(target);
    renderTexts(target);
    if (menuOpen_)
        state_->menu.render(target);
}

void GameScreen::renderWorld(Surface &target) const
{
    for (const auto &[id, asteroid] : state_->asteroids)
        asteroid.sprite.drawCentred(target, asteroid.x, asteroid.y);
    for (const auto &[id, missile] : state_->missiles) {
        if (missile.sprite)
            missile.sprite->drawCentred(target, missile.x, missile.y);
    }
    for (const auto &[id, explosion] : state_->explosions)
        explosion.sprite.drawCentred(target, explosion.x, explosion.y);
}

void GameScreen::renderTexts(Surface &target) const
{
    const BitmapFont &font = state_->font;
    target.drawText(font, formatted(u"%d$", state_->player.money), kScreenWidth, kTextY,
                    TextAlign::AlignRight);
    target.drawText(font, formatted(u"%d", state_->player.missileSlots), kSlotsLeft, kTextY,
                    TextAlign::AlignLeft);
    // Kept: partly outside the screen.
    missileSprite_.draw(target, kMissileIcon, kMissileIcon);
    target.drawText(font, rulesOf(state_->mode).clock(*state_), kScreenCentreX, kTextY,
                    TextAlign::AlignCentre);
}

} // namespace mygame
