#pragma once

#include "platform/desktop/frame.h"
#include "platform/desktop/frame_pacer.h"

struct SDL_Window;

namespace platform
{

/// Shows frames in a window, at a whole multiple of its pixels and with black around.
class Presenter
{
public:
    virtual ~Presenter() = default;

    /// Whether anything can be shown.
    virtual bool isReady() = 0;

    /// Shows a frame that differs from the last one in some rows only.
    virtual void present(const Frame &frame, RowSpan changed) = 0;

    /// The window's size or what it showed is not what it was: the next frame must be shown whole.
    virtual void invalidate() = 0;

    /// Whether `present` waits for the display.
    virtual VerticalSync verticalSync() const = 0;
};

} // namespace platform
