/// A device with a screen: a window of a desktop.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/device.h"
#include "platform/sdl/event_handler.h"
#include "platform/sdl/frame.h"
#include "platform/sdl/frame_pacer.h"
#include "platform/sdl/game_clock.h"
#include "platform/sdl/game_window.h"
#include "platform/sdl/host.h"
#include "platform/sdl/message_queue.h"
#include "platform/sdl/sound_player.h"

namespace platform
{

class SdlDevice final : public Device
{
public:
    SdlDevice();

    Tick tick() const override { return clock_.tick(); }
    /// In the background it waits for what happens, and the clock stands still until that has brought the
    /// window to the front.
    void sleep(std::uint32_t milliseconds) override;

    bool poll(MSG &message) override;
    bool createWindow(const std::string &title) override;
    bool showWindow(bool visible) override { return window_.show(visible); }
    void raiseWindow() override { window_.raise(); }
    bool inForeground() const override { return events_.inForeground(); }
    bool isOtherCopyRunning() override { return host_->isOtherCopyRunning(); }
    void raiseOtherCopy() override { host_->raiseOtherCopy(); }

    std::uint32_t openDisplay() override;
    void closeDisplay() override { displayOpen_ = false; }
    GXDisplayProperties displayProperties() const override;
    std::uint32_t displayRate() const override { return clock_.refreshRate(); }
    void *beginDraw() override { return displayOpen_ ? drawn_.data() : nullptr; }
    void endDraw() override;

    /// Whether all that can be seen at this refresh was shown: what comes is for the next one.
    bool waitsForRefresh() const { return clock_.standsBeforeRefresh(); }

    /// The file that was dropped on the window, which ends the program; empty for none.
    const std::string &droppedFile() const { return events_.droppedFile(); }

    /// Why the window could not be made; empty while nobody tried, and when it could.
    const std::string &windowError() const { return windowError_; }

    /// In the folder of its data, beside which the program looks for them, wherever that is.
    std::u16string programPath() const override;
    std::string hostFile(const std::u16string &path) const override;
    void startSound(const std::string &hostFile) override { sound_.play(hostFile); }

private:
    void pump();
    void endSession();
    void repairPicture();
    bool present(const Damage &damage);

    const std::string dataFolder_;
    std::unique_ptr<Host> host_ = makeHost();
    GameClock clock_{host_->machineTick()};
    MessageQueue messages_;
    GameWindow window_{*host_};
    EventHandler events_{*host_, window_, messages_};
    SoundPlayer sound_;
    FramePacer pacer_{host_->time()};
    std::string windowError_;
    bool displayOpen_ = false;
    Frame drawn_{};
    Frame shown_{};
    Damage damage_ = kWholeWindow; ///< What of the window may not show `shown_`.
};

} // namespace platform
