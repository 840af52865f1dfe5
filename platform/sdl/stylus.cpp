#include "platform/sdl/stylus.h"

namespace platform
{

void Stylus::press(Pointer pointer, Point pixel)
{
    if (owner || !isOnScreen(pixel))
        return;
    owner = pointer;
    last = pixel;
    messages.postStylus(WM_LBUTTONDOWN, last);
}

void Stylus::move(Pointer pointer, Point pixel)
{
    const Point nearest = nearestOnScreen(pixel);
    if (owner != pointer || nearest == last)
        return;
    last = nearest;
    messages.postStylus(WM_MOUSEMOVE, last);
}

void Stylus::release(Pointer pointer, Point pixel)
{
    if (owner != pointer)
        return;
    owner.reset();
    messages.postStylus(WM_LBUTTONUP, nearestOnScreen(pixel));
}

} // namespace platform
