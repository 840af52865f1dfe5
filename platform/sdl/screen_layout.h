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
    int left;
    int top;
    int width;
    int height;

    bool operator==(const ScreenLayout &) const = default;

    /// Pixels in each direction for one pixel of the screen; 0 where that is no whole number.
    int wholeScale() const;
};

/// The middle of a window that is not empty, at a whole multiple of the screen's size where that fills nine
/// tenths of the height or width that there is, and otherwise as large as it goes.
ScreenLayout layOut(Size windowPixels);

/// The screen pixel that is seen at a place in the window, given in points. Outside the picture it lies
/// outside the screen, also on the negative side.
Point toScreen(const WindowSize &window, Point place);

bool isOnScreen(Point pixel);

/// The pixel itself, or for one outside the screen the closest inside.
Point nearestOnScreen(Point pixel);

} // namespace platform
