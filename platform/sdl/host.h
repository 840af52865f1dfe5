/// What SDL leaves to each host: Linux, Windows, the browser. A host is a folder beside this header.
#pragma once

#include <memory>

#include "platform/clock.h"

struct SDL_Window;
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

    /// Whether there is a graphics processor with a driver of its own; drawing emulated by the main processor
    /// does not count. SDL's video must be running.
    virtual bool hasGraphicsProcessor() = 0;

    /// Whether something moves, sizes and layers windows when a program asks for that.
    virtual bool hasWindowManager(SDL_Window *) const { return true; }

    /// To be told when the window gets the keyboard, and every SDL_SYSWMEVENT, in order.
    virtual void noteKeyboardGained() {}
    virtual void noteSystemEvent(const SDL_Event &) {}
    /// Whether the press last noted is one of a key that was down already when the window got the keyboard.
    virtual bool isPressOfHeldKey() const { return false; }
};

/// The host that the program was built for.
std::unique_ptr<Host> makeHost();

} // namespace platform
