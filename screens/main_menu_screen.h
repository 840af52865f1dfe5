#pragma once

#include <cstdint>
#include <string>

#include "graphics/surface.h"
#include "screens/menu_listener.h"
#include "shell/screen.h"

namespace mygame
{

struct GameState;
enum class Difficulty : std::int32_t;
enum class GameMode : std::int32_t;

/// The menu at the start and after every game: resume, new game with its mode and difficulty, sound, exit.
class MainMenuScreen : public Screen, public MenuListener
{
public:
    /// Loads the picture.
    MainMenuScreen();

    /// Sets the state to read and write. Once, before the first activation.
    void link(GameState *state) { gameState_ = state; }

    void render(Surface &target) override;
    void update(Tick now) override;
    void keyUp(std::uint16_t key) override;
    void pointerUp(std::uint16_t x, std::uint16_t y) override;
    bool activate(Application *application) override;

    void itemChosen(std::u16string text) override;

private:
    /// A row of the first list.
    struct TopRow {
        const char16_t *text;
        bool (*isShown)(const GameState &state);
        void (*choose)(MainMenuScreen &menu);
    };

    static const TopRow kTopRows[5];

    void showTopList();
    void showModeList();
    void showDifficultyList();
    void switchSound(bool on);
    void chooseMode(GameMode mode);
    void startGame(Difficulty difficulty);

    Application *application_ = nullptr;
    Surface background_;
    GameState *gameState_ = nullptr;
};

} // namespace mygame
