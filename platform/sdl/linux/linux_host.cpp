#include <alsa/asoundlib.h>
#include <cstdlib>
#include <ctime>

#include <SDL_hints.h>
#include <SDL_video.h>

#include "platform/sdl/host.h"
#include "platform/sdl/linux/display_connection.h"
#include "platform/sdl/linux/graphics_probe.h"
#include "platform/sdl/linux/held_keys.h"
#include "platform/sdl/linux/single_instance.h"
#include "platform/sdl/linux/state_folder.h"
#include "platform/sdl/linux/termination.h"
#include "platform/sdl/linux/window_manager.h"
#include "platform/sdl/linux/window_title.h"
#include "platform/sdl/surface_presenter.h"
#include "platform/sdl/texture_presenter.h"

namespace platform
{
namespace
{

/// Instead of a page of complaints on the terminal where there is no sound card.
void ignoreAlsaError(const char *, int, const char *, int, const char *, ...) {}

/// Where there is no folder for connections, Wayland's library would complain on the terminal, and
/// PulseAudio's, too, or make folders of its own in the user's home and for everybody.
void doWithoutConnections(const char *driverHint, const char *driver)
{
    if (!std::getenv("XDG_RUNTIME_DIR") && !SDL_GetHint(driverHint))
        SDL_SetHint(driverHint, driver);
}

class LinuxHost final : public Host
{
public:
    LinuxHost()
    {
        catchTerminationSignals();
        snd_lib_error_set_handler(ignoreAlsaError);
        doWithoutConnections(SDL_HINT_AUDIODRIVER, "alsa");
    }

    Tick machineTick() const override
    {
        timespec time{};
        clock_gettime(CLOCK_BOOTTIME, &time);
        return static_cast<Tick>(time.tv_sec * 1000 + time.tv_nsec / 1000000);
    }

    std::string stateFolder() override { return platform::stateFolder(); }

    bool isOtherCopyRunning() override { return singleInstance_.isOtherRunning(); }
    void raiseOtherCopy() override { SingleInstance::raiseOther(); }
    bool takeRaiseRequest() override { return singleInstance_.takeRaiseRequest(); }

    bool takeTerminationRequest() override { return platform::takeTerminationRequest(); }

    void prepareDisplay() override
    {
        doWithoutConnections(SDL_HINT_VIDEODRIVER, "x11");
        endWithDisplay();
    }
    void keepWithoutDisplay(SDL_Window *window) override { surviveLossOfDisplay(window); }
    bool isDisplayLost() const override { return platform::isDisplayLost(); }

    void showWindow(SDL_Window *window, bool visible) override
    {
        const DisplayNeeded untilItIsDone;
        if (visible)
            SDL_ShowWindow(window);
        else
            SDL_HideWindow(window);
    }

    void setTitle(SDL_Window *window, const std::string &title) override
    {
        platform::setTitle(window, title);
    }

    std::uint32_t windowFlags() override
    {
        graphicsProcessor_ = hasGraphicsProcessor();
        return graphicsProcessor_ ? SDL_WINDOW_OPENGL : 0;
    }
    std::unique_ptr<Presenter> makePresenter(SDL_Window *window) override
    {
        std::unique_ptr<Presenter> presenter;
        // Either way may be barred: no memory of the window can be had, for one, where pixels have 30 bits.
        for (const bool useTexture : {graphicsProcessor_, !graphicsProcessor_}) {
            presenter.reset();
            if (useTexture)
                presenter = std::make_unique<TexturePresenter>(window);
            else
                presenter = std::make_unique<SurfacePresenter>(window);
            if (presenter->isReady())
                break;
        }
        return presenter;
    }
    bool hasWindowManager(SDL_Window *window) const override { return platform::hasWindowManager(window); }

    void noteKeyboardGained() override { heldKeys_.begin(); }
    void noteSystemEvent(const SDL_Event &event) override { heldKeys_.note(event); }
    bool isPressOfHeldKey() const override { return heldKeys_.lastPressIsOld(); }

private:
    SingleInstance singleInstance_;
    HeldKeys heldKeys_;
    bool graphicsProcessor_ = false;
};

} // namespace

std::unique_ptr<Host> makeHost() { return std::make_unique<LinuxHost>(); }

} // namespace platform
