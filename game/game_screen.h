#pragma once

#include <cstdint>
#include <string>

#include "graphics/animated_sprite.h"
#include "graphics/surface.h"
#include "screens/menu_listener.h"
#include "shell/event_bus.h"
#include "shell/screen.h"

namespace mygame
{

struct GameState;

/// The screen on which the game is played: turns taps into events, delivers all events once a frame, gives
/// the objects their looks and sounds, draws everything, and shows the right screen when a game ends.
class GameScreen : public EventListener, public Screen, public MenuListener
{
public:
    /// Loads the pictures and subscribes to the bus for good.
    GameScreen();
    GameScreen(const GameScreen &) = delete;
    GameScreen &operator=(const GameScreen &) = delete;

    /// Sets the state to show and loads the satellite's picture into it. Once, before any event is delivered.
    void link(GameState *gameState);

    void render(Surface &target) override;
    void update(Tick now) override;
    void keyDown(std::uint16_t key) override;
    void pointerDown(std::uint16_t x, std::uint16_t y) override;
    bool activate(Application *application) override;

    bool onEvent(const Event &event) override;
    void itemChosen(std::u16string text) override;

private:
    /// Strictly between left and right and below the top: an edge does not count.
    struct TapZone {
        std::int32_t left, right, top;
    };

    struct Button {
        const char16_t *file;
        struct {
            std::int32_t x, y;
        } topLeft; ///< Of its picture.
        TapZone zone;
        void (*press)(GameScreen &screen);
    };

    /// A row of the in-game menu.
    struct MenuRow {
        const char16_t *text;
        void (*choose)(GameScreen &screen);
    };

    static constexpr int kButtonCount = 2;
    static constexpr int kAsteroidKinds = 4;
    static const Button kButtons[kButtonCount];
    static const MenuRow kMenuRows[2];

    /// Null where a tap goes to the playfield.
    static const Button *buttonAt(std::int32_t x, std::int32_t y);
    void openGameMenu();
    void updateAnimations(Tick now);
    void dressAsteroid(std::int32_t id);
    void dressMissile(std::int32_t id);
    void spawnExplosion(std::int32_t x, std::int32_t y);
    void playExplosionSound() const;
    void endGame();
    void showMessage(const std::u16string &text);
    void showGameOver();

    void renderWorld(Surface &target) const;
    void renderTexts(Surface &target) const;

    Surface background_;
    Surface buttonPictures_[kButtonCount];
    AnimatedSprite missileSprite_;
    AnimatedSprite asteroidSprites_[kAsteroidKinds];
    AnimatedSprite explosionSprite_;
    Application *application_ = nullptr;
    GameState *state_ = nullptr;
    std::int32_t explosionCounter_ = 0; ///< The last id given to an explosion.
    Tick nukeFlashStart_ = 0;           ///< When the last nuke went off.
    bool menuOpen_ = false;
};

} // namespace mygame
