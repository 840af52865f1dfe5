#include "platform/sdl/stylus.h"

namespace platform
{

void Stylus::press(Pointer pointer, Point pixel)
{
    if (owner_ || !isOnScreen(pixel))
        return;
    owner_ = pointer;
    last_ = pixel;
    messages_.postStylus(WM_LBUTTONDOWN, last_);
}

void Stylus::move(Pointer pointer, Point pixel)
{
    const Point nearest = nearestOnScreen(pixel);
    if (owner_ != pointer || nearest == last_)
        return;
    last_ = nearest;
    messages_.postStylus(WM_MOUSEMOVE, last_);
}

void Stylus::release(Pointer pointer, Point pixel)
{
    if (owner_ != pointer)
        return;
    owner_.reset();
    messages_.postStylus(WM_LBUTTONUP, nearestOnScreen(pixel));
}

} // namespace platform
