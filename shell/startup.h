#pragma once

#include <array>
#include <memory>

#include "graphics/surface.h"
#include "platform/window.h"

namespace mygame
{

class Application;
class GameOverScreen;
class GameRules;
class GameScreen;
class MainMenuScreen;
class Screen;
class ShopScreen;
struct GameState;

/// Everything the program is made of, built and wired together.
class Program
{
public:
    /// Builds all of it: the main menu is current then, before there is a window.
    Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;
    /// Tears it down, the application first.
    ~Program();

    /// Opens the window and plays until the player leaves. Returns at once when there can be no window.
    void run(platform::HINSTANCE instance, int showCommand);

    /// The same in pieces, for a host with a loop of its own. `begin` opens the window; when it returns false
    /// there can be none, and nothing else is to be called. Then come passes until one returns false, and
    /// `end`.
    bool begin(platform::HINSTANCE instance, int showCommand);
    bool runPass();
    void end();

    Application &application() { return *application_; }
    const GameState &state() const { return *state_; }

    /// The name by which the current screen is registered, never null.
    const char *currentScreenName() const;
    /// Whether a game is on, and neither a menu, the shop nor the end is seen.
    bool isInGame() const;

private:
    struct NamedScreen {
        const char *name;
        Screen *screen;
    };

    void loadFonts();
    void setUpMenu();
    void linkScreens();
    std::array<NamedScreen, 6> screens() const;

    // In the reverse order of their destruction, which is not that of their construction.
    Surface leftCap_;
    Surface rightCap_;
    std::unique_ptr<GameState> state_;
    std::unique_ptr<GameRules> rules_;
    std::unique_ptr<GameScreen> gameScreen_;
    std::unique_ptr<ShopScreen> shop_;
    std::unique_ptr<MainMenuScreen> mainMenu_;
    std::unique_ptr<GameOverScreen> gameOver_;
    std::unique_ptr<Application> application_;
};

/// The program's entry: builds it, runs it and tears it down. Previous instance and command line are not
/// used.
/// @return the exit code, always 0.
int startUp(platform::HINSTANCE instance, platform::HINSTANCE previousInstance, const char16_t *commandLine,
            int showCommand);

} // namespace mygame
