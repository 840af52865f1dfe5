#include "screens/game_over_screen.h"

#include "graphics/image_loading.h"
#include "graphics/screen_size.h"
#include "screens/screen_names.h"
#include "shell/application.h"

namespace mygame
{
namespace
{

struct Line {
    std::int32_t y;
    const char16_t *text;
};

constexpr Line kLines[] = {
    {kScreenHeight - 100, u"GAME OVER"},
    {kScreenHeight - 80, u"EARTH HAS BEEN DESTROYED"},
    {kScreenHeight - 60, u"\"GOOD JOB\""},
    {kScreenHeight - 40, u"RETURN TO MAIN MENU"},
};
/// A tap below this leads back to the main menu. Kept: the last line's upper row is not below it.
constexpr std::int32_t kStripTop = kScreenHeight - 40;

} // namespace

GameOverScreen::GameOverScreen() { background_.load(dataFilePath(u"game_over.jpg")); }

void GameOverScreen::render(Surface &target)
{
    background_.blitTo(target, 0, 0);
    for (const Line &line : kLines)
        target.drawText(font_, line.text, kScreenCentreX, line.y, TextAlign::AlignCentre);
}

void GameOverScreen::keyDown(std::uint16_t) { application_->requestStop(); }

void GameOverScreen::pointerUp(std::uint16_t, std::uint16_t y)
{
    if (y > kStripTop)
        application_->setScreen(screen_names::kMainMenu);
}

bool GameOverScreen::activate(Application *application)
{
    application_ = application;
    return true;
}

} // namespace mygame
