#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "platform/window.h"
#include "shell/display.h"
#include "shell/screen.h"

namespace mygame
{

/// The program's window, its main loop and its screens. As a screen it passes drawing and input on to the
/// current one, and does nothing while there is none.
class Application : public Screen
{
public:
    Application();
    /// Restores what surrounds the window and closes log and display. Screens belong to whoever made them.
    ~Application() override;
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    /// Creates the window and opens the display. @return false when there is no window, because creating it
    /// failed or because another copy is running, which then comes to the front.
    bool init(platform::HINSTANCE instance, int showCommand);

    /// The main loop: passes until a stop is requested. After a successful `init`.
    void run();

    /// The same in pieces, for a host with a loop of its own: `beginLoop`, then `runPass` at least once and
    /// for as long as it says, then `endLoop`.
    void beginLoop();

    /// Handles the messages that wait and runs the frame that is due, or sleeps when none is. Waits for
    /// nothing else. @return false when a stop was requested: this was the last pass.
    bool runPass();

    void endLoop();

    /// Makes the loop end after its current pass. Without effect before the loop begins.
    void requestStop();

    /// Registers a screen, replacing one of the same name. Names are compared byte by byte.
    void addScreen(const std::string &name, Screen *screen);

    /// Makes the named screen current at once, also when it already is: the old one is deactivated, the new
    /// one activated. Does nothing for a name that is not registered.
    void setScreen(const std::string &name);

    /// The same for a screen that need not be registered. Not null.
    void setCurrentScreen(Screen *screen);

    /// The registered screen, or null.
    Screen *findScreen(const std::string &name) const;

    /// Null until a screen was set.
    Screen *currentScreen() const { return currentScreen_; }

    void render(Surface &target) override;
    void update(Tick now) override;
    void keyDown(std::uint16_t key) override;
    void keyUp(std::uint16_t key) override;
    void pointerMove(std::uint16_t x, std::uint16_t y) override;
    void pointerUp(std::uint16_t x, std::uint16_t y) override;
    void pointerDown(std::uint16_t x, std::uint16_t y) override;

private:
    bool createWindow(platform::HINSTANCE instance, int showCommand);
    void hideSurroundings(platform::HWND created) const;
    void handleMessages();
    void handleMessage(const platform::MSG &message);
    void runFrame();

    platform::HWND window_ = nullptr;
    std::unique_ptr<Display> display_;
    bool stopRequested_ = false;
    Tick nextFrameTime_; ///< At or after which a frame is due.
    Screen *currentScreen_ = nullptr;
    std::map<std::string, Screen *> screens_;
};

} // namespace mygame
