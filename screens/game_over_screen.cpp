#include "screens/game_over_screen.h"

#include "graphics/image_loading.h"
#include "shell/application.h"

namespace mygame
{
namespace
{

struct Line {
    std::int32_t y;
    const char16_t *text;
};

constexpr std::int32_t kCentreX = 120;
constexpr Line kLines[] = {
    {220, u"GAME OVER"},
    {240, u"EARTH HAS BEEN DESTROYED"},
    {260, u"\"GOOD JOB\""},
    {280, u"RETURN TO MAIN MENU"},
};
/// A tap below this leads back to the main menu.
constexpr std::int32_t kStripTop = 280;

} // namespace

GameOverScreen::GameOverScreen() { background.load(dataFilePath(u"game_over.jpg")); }

void GameOverScreen::render(Surface &target)
{
    background.blitTo(target, 0, 0);
    for (const Line &line : kLines)
        target.drawText(font, line.text, kCentreX, line.y, TextAlign::AlignCentre);
}

void GameOverScreen::keyDown(std::uint16_t) { application->requestStop(); }

void GameOverScreen::pointerUp(std::uint16_t, std::uint16_t y)
{
    if (y > kStripTop)
        application->setScreen("MAIN_MENU");
}

bool GameOverScreen::activate(Application *current)
{
    application = current;
    return true;
}

} // namespace mygame
