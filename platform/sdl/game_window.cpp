#include "platform/sdl/game_window.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <SDL.h>

#include "platform/common/picture.h"

namespace platform
{
namespace
{

/// For a title bar, borders and a margin, in points.
constexpr Size kRoomForDecorations{16, 48};
/// Of the smallest window, in points: a quarter of the screen's size in each direction.
constexpr int kSmallestPart = 4;

constexpr std::pair<const char *, const char *> kHints[] = {
    {SDL_HINT_FRAMEBUFFER_ACCELERATION, "0"}, // A window surface is shared memory, not a texture.
    {SDL_HINT_TOUCH_MOUSE_EVENTS, "0"},       // A finger is not a mouse as well, nor the other way round.
    {SDL_HINT_MOUSE_TOUCH_EVENTS, "0"},
    {SDL_HINT_NO_SIGNAL_HANDLERS, "1"},
    {SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1"},
    {SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0"}, // A small picture needs no compositor switched off.
};

/// Where there is no display SDL falls back to drawing into memory, for nobody to see, unless that is wanted.
bool isInvisible(std::string_view driver)
{
    return !SDL_GetHint(SDL_HINT_VIDEODRIVER) && (driver == "offscreen" || driver == "dummy");
}

/// In points, which are physical pixels except on displays of high density.
Size comfortableSize()
{
    SDL_Rect usable{};
    SDL_GetDisplayUsableBounds(0, &usable);
    const ScreenLayout layout =
        layOut({usable.w - kRoomForDecorations.width, usable.h - kRoomForDecorations.height});
    return {layout.width, layout.height};
}

} // namespace

GameWindow::~GameWindow()
{
    if (host_.isDisplayLost())
        abandon();
    presenter_.reset();
    window_.reset();
    if (videoRuns_)
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

bool GameWindow::startVideo()
{
    for (const auto &[name, value] : kHints)
        SDL_SetHint(name, value);
    host_.prepareDisplay();
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        SDL_SetError("there is no display");
        return false;
    }
    if (isInvisible(SDL_GetCurrentVideoDriver())) {
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
        SDL_SetError("there is no display");
        return false;
    }
    // No text is typed here: an input method would only swallow keys.
    SDL_StopTextInput();
    // The only place where the keys that are down can be seen.
    SDL_EventState(SDL_SYSWMEVENT, SDL_ENABLE);
    return true;
}

bool GameWindow::create(const std::string &newTitle, const std::string &iconFile)
{
    videoRuns_ = videoRuns_ || startVideo();
    if (!videoRuns_)
        return false;
    const std::uint32_t flags =
        SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI | host_.windowFlags();
    const Size size = comfortableSize();
    window_.reset(SDL_CreateWindow(newTitle.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                   size.width, size.height, flags));
    if (!window_)
        return false;
    title_ = newTitle;
    host_.keepWithoutDisplay(window_.get());
    SDL_SetWindowMinimumSize(window_.get(), kScreenSize.width / kSmallestPart,
                             kScreenSize.height / kSmallestPart);
    setIcon(iconFile);
    presenter_ = host_.makePresenter(window_.get());
    return true;
}

void GameWindow::abandon()
{
    if (presenter_)
        presenter_->abandon();
    presenter_.reset();
    static_cast<void>(window_.release());
    videoRuns_ = false;
}

void GameWindow::setIcon(const std::string &file)
{
    common::Picture picture;
    if (!common::decodePicture(file, picture))
        return;
    SDL_Surface *icon =
        SDL_CreateRGBSurfaceWithFormatFrom(picture.pixels.get(), picture.width, picture.height, 32,
                                           static_cast<int>(picture.rowBytes()), SDL_PIXELFORMAT_BGRA32);
    SDL_SetWindowIcon(window_.get(), icon);
    SDL_FreeSurface(icon);
}

bool GameWindow::show(bool visible)
{
    const bool wasVisible = (SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_SHOWN) != 0;
    host_.showWindow(window_.get(), visible);
    return wasVisible;
}

void GameWindow::toggleFullScreen()
{
    if (!host_.hasWindowManager(window_.get())) {
        toggleCover();
        return;
    }
    if (isFullScreen()) {
        SDL_SetWindowFullscreen(window_.get(), 0);
        if (wasMaximised_)
            SDL_MaximizeWindow(window_.get());
    } else {
        wasMaximised_ = (SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_MAXIMIZED) != 0;
        SDL_SetWindowFullscreen(window_.get(), SDL_WINDOW_FULLSCREEN_DESKTOP);
    }
}

bool GameWindow::isFullScreen() const
{
    return uncovered_ || (SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
}

void GameWindow::showNote(const std::string &note)
{
    if (!host_.showNote(note))
        host_.setTitle(window_.get(), note.empty() ? title_ : note);
}

void GameWindow::toggleCover()
{
    SDL_Rect place{};
    if (uncovered_) {
        place = *std::exchange(uncovered_, std::nullopt);
    } else {
        SDL_GetDisplayBounds(SDL_GetWindowDisplayIndex(window_.get()), &place);
        SDL_Rect &old = uncovered_.emplace();
        SDL_GetWindowPosition(window_.get(), &old.x, &old.y);
        SDL_GetWindowSize(window_.get(), &old.w, &old.h);
    }
    SDL_SetWindowPosition(window_.get(), place.x, place.y);
    SDL_SetWindowSize(window_.get(), place.w, place.h);
}

void GameWindow::raise()
{
    if ((SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_MINIMIZED) != 0)
        SDL_RestoreWindow(window_.get());
    SDL_RaiseWindow(window_.get());
}

WindowSize GameWindow::size() const
{
    WindowSize size{};
    SDL_GetWindowSize(window_.get(), &size.points.width, &size.points.height);
    SDL_GetWindowSizeInPixels(window_.get(), &size.pixels.width, &size.pixels.height);
    return size;
}

int GameWindow::refreshRate() const
{
    if (const int rate = host_.refreshRate(); rate != 0)
        return rate;
    SDL_DisplayMode mode{}; // As it stays where there is none.
    SDL_GetCurrentDisplayMode(SDL_GetWindowDisplayIndex(window_.get()), &mode);
    return mode.refresh_rate;
}

} // namespace platform
