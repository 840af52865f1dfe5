#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include <SDL_events.h>

#include "platform/sdl/frame.h"
#include "platform/sdl/frame_pacer.h"
#include "platform/sdl/game_window.h"
#include "platform/sdl/host.h"
#include "platform/sdl/sound_player.h"

namespace platform
{

/// What whoever watches asks for.
enum class ViewerWish { Leave, TogglePause, Forward, Back, Faster, Slower };

/// A window in which somebody watches a game that is played elsewhere.
class ViewerWindow
{
public:
    /// The icon is a picture file, which may be missing. @return false without a display.
    bool open(const std::string &title, const std::string &iconFile);

    void setTitle(const std::string &title);

    /// Takes what was asked for longest ago, if anything was.
    std::optional<ViewerWish> takeWish();

    /// The file that was last dropped on the window since the last call; empty for none.
    std::string takeDroppedFile() { return std::exchange(droppedFile_, {}); }

    /// Shows a picture of 240 x 320 pixels, row by row; nothing for an empty one.
    void show(std::span<const std::uint16_t> picture);

    /// Waits for the display's next refresh. @return the milliseconds since the last call, whole ones.
    std::uint32_t wait();

    /// Starts a WAV file in place of the sound that plays.
    void playSound(const std::string &file) { sound_.play(file); }

private:
    std::optional<ViewerWish> wishOf(const SDL_Event &event);
    std::optional<ViewerWish> wishOfKey(const SDL_Keysym &key);

    std::unique_ptr<Host> host_ = makeHost();
    GameWindow window_{*host_};
    SoundPlayer sound_;
    FramePacer pacer_{host_->time()};
    RealTime::Clock::time_point last_ = host_->time().now(); ///< Up to which `wait` has counted.
    std::string title_;
    std::string droppedFile_;
    Frame shown_{};
    Damage damage_ = kWholeWindow;
};

} // namespace platform
