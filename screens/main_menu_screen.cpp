#include "screens/main_menu_screen.h"

#include "game/events.h"
#include "game/game_state.h"
#include "graphics/image_loading.h"
#include "screens/screen_names.h"
#include "shell/application.h"
#include "shell/event_bus.h"

namespace mygame
{

MainMenuScreen::MainMenuScreen() { background.load(dataFilePath(u"menu.jpg")); }

void MainMenuScreen::render(Surface &target)
{
    background.blitTo(target, 0, 0);
    gameState->menu.render(target);
}

void MainMenuScreen::update(Tick now) { gameState->menu.update(now); }

void MainMenuScreen::keyUp(std::uint16_t) { application->requestStop(); }

void MainMenuScreen::pointerUp(std::uint16_t x, std::uint16_t y) { gameState->menu.onPointer(x, y); }

bool MainMenuScreen::activate(Application *current)
{
    application = current;
    showTopList();
    return true;
}

bool MainMenuScreen::canResume() const
{
    return gameState->player.health > 0 &&
           (gameState->mode != GameMode::TimeAttack || gameState->elapsedMs < kTimeAttackMs);
}

void MainMenuScreen::showTopList()
{
    MenuWidget &menu = gameState->menu;
    menu.open(this);
    if (canResume())
        menu.addItem(u"Resume");
    menu.addItem(u"New game");
    menu.addItem(gameState->soundOn ? u"Sound off" : u"Sound on");
    menu.addItem(u"Exit");
}

void MainMenuScreen::showModeList()
{
    gameState->player.health = Player::kNoGame;
    MenuWidget &menu = gameState->menu;
    menu.open(this);
    menu.addItem(u"Campaign");
    menu.addItem(u"Survival");
    menu.addItem(u"Time attack");
}

void MainMenuScreen::showDifficultyList()
{
    MenuWidget &menu = gameState->menu;
    menu.open(this);
    menu.addItem(u"Easy");
    menu.addItem(u"Medium");
    menu.addItem(u"Hard");
}

void MainMenuScreen::switchSound(bool on)
{
    gameState->soundOn = on ? 1 : 0;
    activate(application);
}

void MainMenuScreen::chooseMode(GameMode mode)
{
    gameState->mode = mode;
    showDifficultyList();
}

void MainMenuScreen::startGame(Difficulty difficulty)
{
    gameState->difficulty = difficulty;
    // The game screen's activation posts a resume, which the new game must follow.
    application->setScreen(screen_names::kGame);
    EventBus::instance().post<NewGameEvent>();
}

void MainMenuScreen::itemChosen(std::u16string text)
{
    struct Command {
        const char16_t *text;
        void (*run)(MainMenuScreen &menu);
    };
    static constexpr Command kCommands[] = {
        {u"New game", [](MainMenuScreen &menu) { menu.showModeList(); }},
        {u"Sound off", [](MainMenuScreen &menu) { menu.switchSound(false); }},
        {u"Sound on", [](MainMenuScreen &menu) { menu.switchSound(true); }},
        {u"Exit", [](MainMenuScreen &menu) { menu.application->requestStop(); }},
        {u"Campaign", [](MainMenuScreen &menu) { menu.chooseMode(GameMode::Campaign); }},
        {u"Survival", [](MainMenuScreen &menu) { menu.chooseMode(GameMode::Survival); }},
        {u"Time attack", [](MainMenuScreen &menu) { menu.chooseMode(GameMode::TimeAttack); }},
        {u"Easy", [](MainMenuScreen &menu) { menu.startGame(Difficulty::Easy); }},
        {u"Medium", [](MainMenuScreen &menu) { menu.startGame(Difficulty::Medium); }},
        {u"Hard", [](MainMenuScreen &menu) { menu.startGame(Difficulty::Hard); }},
        {u"Resume", [](MainMenuScreen &menu) { menu.application->setScreen(screen_names::kGame); }},
    };
    for (const Command &command : kCommands) {
        if (text == command.text) {
            command.run(*this);
            return;
        }
    }
}

} // namespace mygame
