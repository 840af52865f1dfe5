#include "platform/sdl/event_handler.h"

#include <cmath>
#include <utility>

#include <SDL_stdinc.h>

#include "platform/sdl/window_keys.h"

namespace platform
{
namespace
{

constexpr Pointer kMouse{Pointer::Kind::Mouse, 0};

Pointer fingerOf(const SDL_TouchFingerEvent &event) { return {Pointer::Kind::Finger, event.fingerId}; }

} // namespace

void EventHandler::handle(const SDL_Event &event)
{
    switch (event.type) {
    case SDL_QUIT:
        messages_.post(WM_QUIT);
        break;
    case SDL_DROPFILE:
        droppedFile_ = event.drop.file;
        SDL_free(event.drop.file);
        messages_.post(WM_QUIT);
        break;
    case SDL_APP_TERMINATING:
        messages_.post(WM_QUERYENDSESSION);
        break;
    case SDL_WINDOWEVENT:
        handleWindowEvent(event.window);
        break;
    case SDL_RENDER_TARGETS_RESET:
    case SDL_RENDER_DEVICE_RESET:
        pictureLost_ = true;
        break;
    case SDL_SYSWMEVENT:
        host_.noteSystemEvent(event);
        break;
    case SDL_KEYDOWN:
        handleKeyPress(event.key);
        break;
    case SDL_MOUSEMOTION:
        stylus_.move(kMouse, toScreen(window_.size(), {event.motion.x, event.motion.y}));
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        handleMouseButton(event.button);
        break;
    case SDL_FINGERDOWN:
    case SDL_FINGERMOTION:
    case SDL_FINGERUP:
        handleFinger(event.tfinger);
        break;
    case kPointerCancelled:
        stylus_.cancel();
        break;
    default:
        break;
    }
}

bool EventHandler::takePictureLost() { return std::exchange(pictureLost_, false); }

void EventHandler::handleWindowEvent(const SDL_WindowEvent &event)
{
    switch (event.event) {
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        enterForeground();
        break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
        leaveForeground();
        break;
    case SDL_WINDOWEVENT_SHOWN:
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED:
    case SDL_WINDOWEVENT_DISPLAY_CHANGED:
        pictureLost_ = true;
        break;
    default:
        break;
    }
}

void EventHandler::enterForeground()
{
    constexpr std::uint32_t WA_ACTIVE = 1;
    foreground_ = true;
    host_.noteKeyboardGained();
    messages_.post(WM_ACTIVATE, WA_ACTIVE);
    messages_.post(WM_SETFOCUS);
}

void EventHandler::leaveForeground()
{
    constexpr std::uint32_t WA_INACTIVE = 0;
    foreground_ = false;
    stylus_.cancel();
    escape_.forget();
    messages_.post(WM_ACTIVATE, WA_INACTIVE);
    messages_.post(WM_KILLFOCUS);
}

void EventHandler::handleKeyPress(const SDL_KeyboardEvent &event)
{
    // Without a window manager the pointer alone can direct keys to a window in the background.
    if (!foreground_ || event.repeat != 0 || host_.isPressOfHeldKey())
        return;
    if (togglesFullScreen(event.keysym))
        window_.toggleFullScreen();
    else if (isEscape(event.keysym))
        pressEscape();
}

void EventHandler::pressEscape()
{
    constexpr std::uint32_t VK_ESCAPE = 0x1B;
    if (window_.isFullScreen()) {
        window_.toggleFullScreen();
    } else if (escape_.press(EscapeKey::Clock::now())) {
        messages_.post(WM_KEYDOWN, VK_ESCAPE);
        messages_.post(WM_KEYUP, VK_ESCAPE);
    }
}

void EventHandler::keepTime()
{
    const bool asks = escape_.isAsking(EscapeKey::Clock::now());
    if (asks == titleAsks_)
        return;
    titleAsks_ = asks;
    window_.showNote(asks ? "Press Escape again to leave" : "");
}

void EventHandler::handleMouseButton(const SDL_MouseButtonEvent &event)
{
    if (event.button != SDL_BUTTON_LEFT)
        return;
    const Point pixel = toScreen(window_.size(), {event.x, event.y});
    if (event.type == SDL_MOUSEBUTTONDOWN)
        press(kMouse, pixel);
    else
        stylus_.release(kMouse, pixel);
}

void EventHandler::handleFinger(const SDL_TouchFingerEvent &event)
{
    const Point pixel = fingerPixel(event);
    if (event.type == SDL_FINGERDOWN)
        press(fingerOf(event), pixel);
    else if (event.type == SDL_FINGERMOTION)
        stylus_.move(fingerOf(event), pixel);
    else
        stylus_.release(fingerOf(event), pixel);
}

void EventHandler::press(Pointer pointer, Point pixel)
{
    // What touches a window in the background only brings it to the front.
    if (foreground_)
        stylus_.press(pointer, pixel);
}

Point EventHandler::fingerPixel(const SDL_TouchFingerEvent &event) const
{
    // A finger's place is a fraction of the window: counted in pixels it needs no points.
    const Size pixels = window_.size().pixels;
    const auto place = [](float fraction, int length) {
        return static_cast<int>(std::floor(fraction * static_cast<float>(length)));
    };
    return toScreen({pixels, pixels}, {place(event.x, pixels.width), place(event.y, pixels.height)});
}

} // namespace platform
