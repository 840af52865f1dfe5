#pragma once

#include "platform/sdl/frame.h"
#include "platform/sdl/frame_pacer.h"

struct SDL_Window;

namespace platform
{

/// Shows frames in a window, where `layOut` puts them and with black around.
class Presenter
{
public:
    virtual ~Presenter() = default;

    /// Whether anything can be shown.
    virtual bool isReady() = 0;

    /// Shows a frame where the window does not show it yet. @return false when it could not be shown: the
    /// damage is still there then.
    virtual bool present(const Frame &frame, const Damage &damage) = 0;

    /// The window's size or what it showed is not what it was: the next frame is presented whole.
    virtual void invalidate() = 0;

    /// Forgets what belongs to a display that has gone: nothing of it could be destroyed any more.
    virtual void abandon() {}

    /// Whether `present` waits for the display.
    virtual VerticalSync verticalSync() const = 0;
};

} // namespace platform
