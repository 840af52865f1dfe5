/// The game screen's picture: the world and, over it, what the player has to know.
#include "game/game_screen.h"

#include "game/game_state.h"
#include "graphics/screen_size.h"
#include "platform/clock.h"
#include "platform/text.h"

namespace mygame
{
namespace
{

constexpr std::uint32_t kNukeFlashMs = 1000;

constexpr std::int32_t kNukeButtonX = 7;
constexpr std::int32_t kNukeButtonY = 296;
constexpr std::int32_t kMenuButtonX = 210;
constexpr std::int32_t kMenuButtonY = 290;

constexpr std::int32_t kTextY = 0;
constexpr std::int32_t kSlotsLeft = 10;
constexpr std::int32_t kMissileIcon = -2; ///< Both x and y.

constexpr std::int32_t kSecondsPerMinute = 60;
constexpr std::int32_t kMinutesPerHour = 60;

} // namespace

void GameScreen::render(Surface &target)
{
    if (platform::GetTickCount() - nukeFlashStart < kNukeFlashMs) {
        target.fill(kWhite);
        return;
    }
    background.blitTo(target, 0, 0);
    nukeButton.blitTo(target, kNukeButtonX, kNukeButtonY);
    menuButton.blitTo(target, kMenuButtonX, kMenuButtonY);
    renderWorld(target);
    state->player.drawPlayer(target);
    renderTexts(target);
    if (menuOpen)
        state->menu.render(target);
}

void GameScreen::renderWorld(Surface &target) const
{
    for (const auto &[id, asteroid] : state->asteroids)
        asteroid.sprite.drawCentred(target, asteroid.x, asteroid.y);
    for (const auto &[id, missile] : state->missiles) {
        if (missile.sprite)
            missile.sprite->drawCentred(target, missile.x, missile.y);
    }
    for (const auto &[id, explosion] : state->explosions)
        explosion.sprite.drawCentred(target, explosion.x, explosion.y);
}

void GameScreen::renderTexts(Surface &target) const
{
    char16_t text[platform::kMaxFormattedText];
    platform::wsprintfW(text, u"%d$", state->player.money);
    target.drawText(state->font, text, kScreenWidth, kTextY, TextAlign::AlignRight);
    platform::wsprintfW(text, u"%d", state->player.missileSlots);
    target.drawText(state->font, text, kSlotsLeft, kTextY, TextAlign::AlignLeft);
    missileSprite.draw(target, kMissileIcon, kMissileIcon);
    renderClock(target);
}

void GameScreen::renderClock(Surface &target) const
{
    char16_t text[platform::kMaxFormattedText];
    const std::int32_t seconds = state->elapsedMs / kMsPerSecond;
    if (state->mode == GameMode::TimeAttack)
        platform::wsprintfW(text, u"0:%d", kTimeAttackMs / kMsPerSecond - seconds);
    else if (state->mode == GameMode::Survival)
        platform::wsprintfW(text, u"%2.2d:%2.2d", seconds / kSecondsPerMinute % kMinutesPerHour,
                            seconds % kSecondsPerMinute);
    else
        return;
    target.drawText(state->font, text, kScreenCentreX, kTextY, TextAlign::AlignCentre);
}

} // namespace mygame
