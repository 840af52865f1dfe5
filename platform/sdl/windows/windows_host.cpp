#include <cerrno>
#include <cstdlib>
#include <direct.h>

#include <SDL_video.h>

#include "platform/sdl/host.h"
#include "platform/sdl/surface_presenter.h"
#include "platform/sdl/windows/machine_time.h"
#include "platform/sdl/windows/parent_console.h"
#include "platform/sdl/windows/single_instance.h"
#include "platform/sdl/windows/window_messages.h"

namespace platform
{
namespace
{

class WindowsHost final : public Host
{
public:
    Tick machineTick() const override { return static_cast<Tick>(machineTimeMs()); }

    std::string stateFolder() override
    {
        const char *user = std::getenv("LOCALAPPDATA");
        const std::string folder = std::string(user ? user : "") + "\\MyGame";
        if (user && (_mkdir(folder.c_str()) == 0 || errno == EEXIST))
            return folder;
        // Where nobody but an administrator makes files.
        const char *system = std::getenv("SystemRoot");
        return system ? system : "";
    }

    void reachTerminal() override { writeToParentConsole(); }

    bool isOtherCopyRunning() override { return singleInstance_.isOtherRunning(); }
    void raiseOtherCopy() override { SingleInstance::raiseOther(); }
    bool takeRaiseRequest() override { return singleInstance_.takeRaiseRequest(); }

    bool takeTerminationRequest() override { return messages_.takeEndOfSession(); }

    std::unique_ptr<Presenter> makePresenter(SDL_Window *window) override
    {
        return std::make_unique<SurfacePresenter>(window);
    }
    void showWindow(SDL_Window *window, bool visible) override
    {
        if (visible)
            SDL_ShowWindow(window);
        else
            SDL_HideWindow(window);
    }

    void noteSystemEvent(const SDL_Event &event) override { messages_.note(event); }
    bool isPressOfHeldKey() const override { return messages_.lastPressIsOld(); }

private:
    SingleInstance singleInstance_;
    WindowMessages messages_;
};

} // namespace

std::unique_ptr<Host> makeHost() { return std::make_unique<WindowsHost>(); }

} // namespace platform
