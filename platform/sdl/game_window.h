#pragma once

#include <memory>
#include <optional>
#include <string>

#include <SDL_rect.h>
#include <SDL_video.h>

#include "platform/sdl/host.h"
#include "platform/sdl/presenter.h"
#include "platform/sdl/screen_layout.h"

namespace platform
{

/// The program's window on the desktop. Until it was created, and without a display to create it on, every
/// operation does nothing.
class GameWindow
{
public:
    explicit GameWindow(Host &host) : host_(host) {}
    GameWindow(const GameWindow &) = delete;
    GameWindow &operator=(const GameWindow &) = delete;
    ~GameWindow();

    /// Makes a hidden window, as large as the picture can be shown well with room around it.
    /// The icon is a picture file, which may be missing. @return false without a display.
    bool create(const std::string &newTitle, const std::string &iconFile);

    bool exists() const { return window_ != nullptr; }
    /// Forgets the window, whose display has gone: nothing of it could be destroyed any more.
    void abandon();
    /// Null until the window exists.
    Presenter *presenter() const { return presenter_.get(); }

    /// Shows or hides the window. @return whether it was visible before.
    bool show(bool visible);
    void toggleFullScreen();
    bool isFullScreen() const;
    /// Says something where the host has a place for it, and otherwise in the title in place of the program's
    /// name, which comes back with the empty text.
    void showNote(const std::string &note);
    /// Puts the window in front of all others and asks for the keyboard.
    void raise();

    WindowSize size() const;
    /// Of the display that the window is on, in Hz; 0 when it is not known.
    int refreshRate() const;

private:
    struct Destroy {
        void operator()(SDL_Window *window) const { SDL_DestroyWindow(window); }
    };

    void setIcon(const std::string &file);
    bool startVideo();
    void toggleCover();

    Host &host_;
    /// Null until `create`; to SDL that is an error that changes nothing.
    std::unique_ptr<SDL_Window, Destroy> window_;
    std::unique_ptr<Presenter> presenter_;
    std::string title_;
    bool videoRuns_ = false;
    bool wasMaximised_ = false; ///< Before it went to full screen.
    /// Where the window was before it covered the display without a window manager's help.
    std::optional<SDL_Rect> uncovered_;
};

} // namespace platform
