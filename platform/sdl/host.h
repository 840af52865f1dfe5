/// What SDL leaves to each host: Linux, Windows, the browser. A host is a folder beside this header.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <SDL_video.h>

#include "platform/clock.h"
#include "platform/sdl/presenter.h"

union SDL_Event;

namespace platform
{

/// The machine and its desktop. What has no meaning on a host stays as it is here.
class Host
{
public:
    Host() = default;
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;
    virtual ~Host() = default;

    /// The time for which the machine has been running.
    virtual Tick machineTick() const = 0;
    virtual RealTime &time() { return time_; }

    /// The user's folder for what the program writes, made if absent; where it cannot be had, one in which
    /// nothing can be made. Empty where one folder is as good as another.
    virtual std::string stateFolder() { return {}; }

    /// Lets what the program writes to standard output reach the terminal from which it was started.
    virtual void reachTerminal() {}

    /// Takes the place of the one running copy unless another copy has it. @return whether one has. Where
    /// copies cannot find each other, every one is alone.
    virtual bool isOtherCopyRunning() { return false; }
    /// Asks the copy that has the place to come to the front.
    virtual void raiseOtherCopy() {}
    /// @return true once after another copy asked for that.
    virtual bool takeRaiseRequest() { return false; }

    /// @return true once after the system or a terminal asked the program to end.
    virtual bool takeTerminationRequest() { return false; }

    /// To be called right before SDL's video starts, and right after the window was made.
    virtual void prepareDisplay() {}
    virtual void keepWithoutDisplay(SDL_Window *) {}
    /// Whether the display that the window was on has gone. Then nothing that belongs to it may be used or
    /// destroyed any more, and the program is to end in its own way.
    virtual bool isDisplayLost() const { return false; }
    /// Shows or hides the window, even where the display goes meanwhile.
    virtual void showWindow(SDL_Window *window, bool visible) = 0;

    virtual void setTitle(SDL_Window *window, const std::string &title)
    {
        SDL_SetWindowTitle(window, title.c_str());
    }

    /// SDL's flags for a window in which the presenter below can show frames. SDL's video must be running.
    virtual std::uint32_t windowFlags() { return 0; }
    /// What shows frames best on this machine, in a window made with those flags. It may turn out not to be
    /// ready, where there is nothing better. The window must outlive it.
    virtual std::unique_ptr<Presenter> makePresenter(SDL_Window *window) = 0;

    /// Refreshes in a second, where the host knows that better than SDL; 0 where not.
    virtual int refreshRate() const { return 0; }

    /// Shows a note to the player, or none when it is empty. @return whether the host has a place for that;
    /// where not, the window's title is the place.
    virtual bool showNote(const std::string &) { return false; }

    /// Whether something moves, sizes and layers windows when a program asks for that.
    virtual bool hasWindowManager(SDL_Window *) const { return true; }

    /// To be told when the window gets the keyboard, and every SDL_SYSWMEVENT, in order.
    virtual void noteKeyboardGained() {}
    virtual void noteSystemEvent(const SDL_Event &) {}
    /// Whether the press last noted is one of a key that was down already when the window got the keyboard.
    virtual bool isPressOfHeldKey() const { return false; }

private:
    RealTime time_;
};

/// The host that the program was built for.
std::unique_ptr<Host> makeHost();

} // namespace platform
