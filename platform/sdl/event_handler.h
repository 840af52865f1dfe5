#pragma once

#include <cstdint>
#include <string>

#include <SDL_events.h>

#include "platform/sdl/escape_key.h"
#include "platform/sdl/game_window.h"
#include "platform/sdl/message_queue.h"
#include "platform/sdl/stylus.h"

namespace platform
{

/// An event that a host may push: the system took the pointer away. A tap that has begun is dropped.
constexpr std::uint32_t kPointerCancelled = SDL_USEREVENT;

/// Turns what happens to the window into the messages that the handheld's window system would send.
class EventHandler
{
public:
    EventHandler(Host &host, GameWindow &window, MessageQueue &messages)
        : host_(host), window_(window), messages_(messages), stylus_(messages)
    {
    }

    /// To be told every event that SDL reports, in order and as soon as it is taken from SDL's queue.
    void handle(const SDL_Event &event);

    /// To be called now and then: takes back what the title says when its time is over.
    void keepTime();

    /// The file that was dropped on the window; empty for none.
    const std::string &droppedFile() const { return droppedFile_; }

    /// Whether the window has the keyboard.
    bool inForeground() const { return foreground_; }

    /// Whether, since the last call, the window's size or display changed or what it showed was lost.
    bool takePictureLost();

private:
    void handleWindowEvent(const SDL_WindowEvent &event);
    void enterForeground();
    void leaveForeground();
    void handleKeyPress(const SDL_KeyboardEvent &event);
    void pressEscape();
    void handleMouseButton(const SDL_MouseButtonEvent &event);
    void handleFinger(const SDL_TouchFingerEvent &event);
    void press(Pointer pointer, Point pixel);
    Point fingerPixel(const SDL_TouchFingerEvent &event) const;

    Host &host_;
    GameWindow &window_;
    MessageQueue &messages_;
    Stylus stylus_;
    EscapeKey escape_;
    std::string droppedFile_;
    bool foreground_ = false;
    bool pictureLost_ = false;
    bool titleAsks_ = false; ///< For the second press of Escape.
};

} // namespace platform
