/// Where the handheld's screen lies in the window, in integers only.
#pragma once

namespace platform
{

struct Size {
    int width;
    int height;
};

struct Point {
    int x;
    int y;

    bool operator==(const Point &) const = default;
};

/// The handheld's screen, in its own pixels.
constexpr Size kScreenSize{240, 320};

/// A window as the window system counts (points) and as the display shows it (physical pixels).
struct WindowSize {
    Size points;
    Size pixels;
};

/// The screen's place in a window, in physical pixels.
struct ScreenLayout {
    int scale; ///< Pixels in each direction for one pixel of the screen.
    int left;  ///< Negative, like `top`, in a window that is smaller than the screen.
    int top;

    bool operator==(const ScreenLayout &) const = default;
};

/// The largest whole multiple that fits, at least 1, in the middle of the window.
ScreenLayout layOut(Size windowPixels);

/// The screen pixel under a place in the window, given in points. Outside the picture it lies outside the
/// screen, also on the negative side.
Point toScreen(const WindowSize &window, Point place);

bool isOnScreen(Point pixel);

/// The pixel itself, or for one outside the screen the closest inside.
Point nearestOnScreen(Point pixel);

} // namespace platform
