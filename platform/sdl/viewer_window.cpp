#include "platform/sdl/viewer_window.h"

#include <algorithm>
#include <chrono>

#include <SDL.h>

#include "platform/sdl/window_keys.h"

namespace platform
{

bool ViewerWindow::open(const std::string &title, const std::string &iconFile)
{
    if (!window_.create(title, iconFile))
        return false;
    window_.show(true);
    window_.raise();
    return true;
}

void ViewerWindow::setTitle(const std::string &title)
{
    if (title != title_)
        window_.showNote(title);
    title_ = title;
}

std::optional<ViewerWish> ViewerWindow::takeWish()
{
    if (host_->isDisplayLost() || host_->takeTerminationRequest())
        return ViewerWish::Leave;
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        if (const auto wish = wishOf(event))
            return wish;
    }
    return std::nullopt;
}

std::optional<ViewerWish> ViewerWindow::wishOf(const SDL_Event &event)
{
    switch (event.type) {
    case SDL_QUIT:
    case SDL_APP_TERMINATING:
        return ViewerWish::Leave;
    case SDL_KEYDOWN:
        return wishOfKey(event.key.keysym);
    case SDL_DROPFILE:
        droppedFile_ = event.drop.file;
        SDL_free(event.drop.file);
        return ViewerWish::Leave;
    case SDL_WINDOWEVENT:
        pacer_.setRefreshRate(window_.refreshRate());
        window_.presenter()->invalidate();
        damage_ = kWholeWindow;
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

std::optional<ViewerWish> ViewerWindow::wishOfKey(const SDL_Keysym &key)
{
    if (togglesFullScreen(key) || (isEscape(key) && window_.isFullScreen())) {
        window_.toggleFullScreen();
        return std::nullopt;
    }
    switch (key.sym) {
    case SDLK_ESCAPE:
        return ViewerWish::Leave;
    case SDLK_SPACE:
        return ViewerWish::TogglePause;
    case SDLK_RIGHT:
        return ViewerWish::Forward;
    case SDLK_LEFT:
        return ViewerWish::Back;
    case SDLK_PLUS:
    case SDLK_EQUALS: // Where the plus sign is on the same key.
    case SDLK_KP_PLUS:
        return ViewerWish::Faster;
    case SDLK_MINUS:
    case SDLK_KP_MINUS:
        return ViewerWish::Slower;
    default:
        return std::nullopt;
    }
}

void ViewerWindow::show(std::span<const std::uint16_t> picture)
{
    Frame frame = shown_;
    std::copy_n(picture.begin(), std::min(picture.size(), frame.size()), frame.begin());
    damage_ = {spanOver(damage_.rows, differingRows(frame, shown_)), damage_.surroundings};
    shown_ = frame;
    if (!damage_.empty() && window_.presenter()->present(shown_, damage_))
        damage_ = kNoDamage;
}

std::uint32_t ViewerWindow::wait()
{
    pacer_.wait(window_.presenter()->verticalSync());
    const auto passed = std::chrono::floor<std::chrono::milliseconds>(host_->time().now() - last_);
    last_ += passed;
    return static_cast<std::uint32_t>(passed.count());
}

} // namespace platform
