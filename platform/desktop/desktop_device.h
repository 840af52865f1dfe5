/// Everything that the platform's operations act on while the program runs in a window of a desktop.
#pragma once

#include <cstdint>
#include <string>

#include "platform/desktop/event_handler.h"
#include "platform/desktop/frame.h"
#include "platform/desktop/frame_pacer.h"
#include "platform/desktop/game_window.h"
#include "platform/desktop/message_queue.h"
#include "platform/desktop/sampled_clock.h"
#include "platform/desktop/single_instance.h"
#include "platform/desktop/sound_player.h"
#include "platform/window.h"

namespace platform
{

class DesktopDevice
{
public:
    /// The one device of the process, made at the first call and destroyed when the program ends.
    static DesktopDevice &instance();

    DesktopDevice(const DesktopDevice &) = delete;
    DesktopDevice &operator=(const DesktopDevice &) = delete;

    bool createWindow(const char *title);

    /// Takes the oldest message, after looking for what happened since the last call.
    bool poll(MSG &message);
    bool inForeground() const { return events.inForeground(); }

    /// @return false when nothing can be shown.
    bool openDisplay();
    void closeDisplay() { displayOpen = false; }
    /// What the program draws into; null while the display is closed.
    Frame *frame() { return displayOpen ? &drawn : nullptr; }
    /// Shows what was drawn, if that is new, and waits for the display's next refresh.
    void endFrame();

    std::uint32_t tick() const { return clock.tick(); }
    /// In the background until an event comes, though not for long; else for the time given.
    void sleep(std::uint32_t milliseconds);

    GameWindow window;
    SingleInstance singleInstance;
    SoundPlayer sound;

private:
    DesktopDevice();

    void pump();
    void endSession();
    void repairPicture();

    SampledClock clock;
    MessageQueue messages;
    EventHandler events{window, messages};
    FramePacer pacer;
    bool displayOpen = false;
    Frame drawn{};
    Frame shown{};
    RowSpan stale = kAllRows; ///< Rows of the window that may not show `shown`.
};

} // namespace platform
