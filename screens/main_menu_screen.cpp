#include "screens/main_menu_screen.h"

#include "game/events.h"
#include "game/game_state.h"
#include "graphics/image_loading.h"
#include "screens/screen_names.h"
#include "shell/application.h"
#include "shell/event_bus.h"

namespace mygame
{

constinit const MainMenuScreen::TopRow MainMenuScreen::kTopRows[] = {
    {u"Resume", canResume, [](MainMenuScreen &menu) { menu.application_->setScreen(screen_names::kGame); }},
    {u"New game", [](const GameState &) { return true; }, [](MainMenuScreen &menu) { menu.showModeList(); }},
    {u"Sound off", [](const GameState &state) { return state.soundOn != 0; },
     [](MainMenuScreen &menu) { menu.switchSound(false); }},
    {u"Sound on", [](const GameState &state) { return state.soundOn == 0; },
     [](MainMenuScreen &menu) { menu.switchSound(true); }},
    {u"Exit", [](const GameState &) { return true; },
     [](MainMenuScreen &menu) { menu.application_->requestStop(); }},
};

MainMenuScreen::MainMenuScreen() { background_.load(dataFilePath(u"menu.jpg")); }

void MainMenuScreen::render(Surface &target)
{
    background_.blitTo(target, 0, 0);
    gameState_->menu.render(target);
}

void MainMenuScreen::update(Tick now) { gameState_->menu.update(now); }

void MainMenuScreen::keyUp(std::uint16_t) { application_->requestStop(); }

void MainMenuScreen::pointerUp(std::uint16_t x, std::uint16_t y) { gameState_->menu.onPointer(x, y); }

bool MainMenuScreen::activate(Application *application)
{
    application_ = application;
    showTopList();
    return true;
}

void MainMenuScreen::showTopList()
{
    gameState_->menu.open(this);
    for (const TopRow &row : kTopRows) {
        if (row.isShown(*gameState_))
            gameState_->menu.addItem(row.text);
    }
}

void MainMenuScreen::showModeList()
{
    // Kept: the old game is given up here already, before a new one is chosen.
    gameState_->player.health = Player::kNoGame;
    gameState_->menu.open(this);
    for (const ModeRules &rules : gameModes())
        gameState_->menu.addItem(rules.name);
}

void MainMenuScreen::showDifficultyList()
{
    gameState_->menu.open(this);
    for (const DifficultyRules &rules : difficulties())
        gameState_->menu.addItem(rules.name);
}

void MainMenuScreen::switchSound(bool on)
{
    gameState_->soundOn = on ? 1 : 0;
    activate(application_);
}

void MainMenuScreen::chooseMode(GameMode mode)
{
    gameState_->mode = mode;
    showDifficultyList();
}

void MainMenuScreen::startGame(Difficulty difficulty)
{
    gameState_->difficulty = difficulty;
    // The game screen's activation posts a resume, which the new game must follow.
    application_->setScreen(screen_names::kGame);
    EventBus::instance().post<NewGameEvent>();
}

void MainMenuScreen::itemChosen(std::u16string text)
{
    for (const TopRow &row : kTopRows) {
        if (text == row.text)
            return row.choose(*this);
    }
    for (const ModeRules &rules : gameModes()) {
        if (text == rules.name)
            return chooseMode(rules.mode);
    }
    for (const DifficultyRules &rules : difficulties()) {
        if (text == rules.name)
            return startGame(rules.difficulty);
    }
}

} // namespace mygame
