/// Measures on a real display what a player feels: how long a tap takes until it is seen, and how even the
/// refreshes are. Taps by XTest on the window of `device_demo` and looks at single pixels of it.
///   tap_latency WINDOW          WINDOW is the id of a window at three times the handheld's size
/// Prints both figures beside their goals; the exit status is 1 when one is missed. Other programs on the
/// machine spoil the figures.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

namespace
{

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kScale = 3;
constexpr int kTaps = 100;
constexpr int kRefreshes = 300;
constexpr double kRefreshMs = 1000.0 / 60;
constexpr std::chrono::seconds kPatience{5};

/// Places on the handheld's screen: the one that is tapped, whose marking begins 4 pixels beside it, and the
/// square by which every pixel changes in every frame.
constexpr int kTappedX = 100, kTappedY = 250, kMarked = 4;
constexpr int kEveryPixelX = 58, kSquareY = 25;
/// Nothing but the background is drawn here.
constexpr int kBareX = 10, kBareY = 310;

struct CloseDisplay {
    void operator()(Display *display) const { XCloseDisplay(display); }
};

class DemoWindow
{
public:
    DemoWindow(Display *display, Window window) : display_(display), window_(window)
    {
        Window child = 0;
        XTranslateCoordinates(display_, window_, DefaultRootWindow(display_), 0, 0, &left_, &top_, &child);
    }

    void press(int x, int y)
    {
        XTestFakeMotionEvent(display_, -1, left_ + x * kScale + 1, top_ + y * kScale + 1, 0);
        XTestFakeButtonEvent(display_, 1, True, 0);
        XSync(display_, False);
    }

    void release()
    {
        XTestFakeButtonEvent(display_, 1, False, 0);
        XSync(display_, False);
    }

    unsigned long pixel(int x, int y)
    {
        XImage *image =
            XGetImage(display_, window_, x * kScale + 1, y * kScale + 1, 1, 1, AllPlanes, ZPixmap);
        if (!image) {
            std::fputs("tap_latency: the window cannot be read\n", stderr);
            std::exit(2);
        }
        const unsigned long value = XGetPixel(image, 0, 0);
        XDestroyImage(image);
        return value;
    }

    /// Waits for another colour. @return when it was seen.
    Clock::time_point changeFrom(unsigned long before, int x, int y)
    {
        const Clock::time_point begin = Clock::now();
        while (pixel(x, y) == before) {
            if (Clock::now() - begin > kPatience) {
                std::fputs("tap_latency: nothing changes; is it the window of device_demo?\n", stderr);
                std::exit(2);
            }
        }
        return Clock::now();
    }

private:
    Display *display_;
    Window window_;
    int left_ = 0;
    int top_ = 0;
};

std::vector<double> tapLatencies(DemoWindow &demo)
{
    std::minstd_rand random;
    std::vector<double> latencies;
    const int markedX = kTappedX - kMarked;
    for (int i = 0; i < kTaps; ++i) {
        const unsigned long unmarked = demo.pixel(markedX, kTappedY);
        demo.press(kTappedX, kTappedY);
        demo.changeFrom(unmarked, markedX, kTappedY);
        // At any moment between two refreshes.
        std::this_thread::sleep_for(std::chrono::microseconds(30000 + random() % 16667));
        const unsigned long marked = demo.pixel(markedX, kTappedY);
        const Clock::time_point released = Clock::now();
        demo.release();
        latencies.push_back(Milliseconds(demo.changeFrom(marked, markedX, kTappedY) - released).count());
        std::this_thread::sleep_for(std::chrono::microseconds(30000 + random() % 16667));
    }
    return latencies;
}

std::vector<double> refreshGaps(DemoWindow &demo)
{
    demo.press(kEveryPixelX, kSquareY);
    demo.release();
    std::vector<double> gaps;
    Clock::time_point last = demo.changeFrom(demo.pixel(0, 0) + 1, 0, 0);
    for (int i = -10; i < kRefreshes; ++i) {
        const Clock::time_point seen = demo.changeFrom(demo.pixel(kBareX, kBareY), kBareX, kBareY);
        if (i >= 0)
            gaps.push_back(Milliseconds(seen - last).count());
        last = seen;
    }
    return gaps;
}

/// The value that this share of all does not exceed.
double quantile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

} // namespace

int main(int argumentCount, char **arguments)
{
    const std::unique_ptr<Display, CloseDisplay> display(XOpenDisplay(nullptr));
    if (argumentCount != 2 || !display) {
        std::fputs("usage: tap_latency WINDOW (the id of device_demo's window, on the display in use)\n",
                   stderr);
        return 2;
    }
    DemoWindow demo(display.get(), std::strtoul(arguments[1], nullptr, 0));
    const std::vector<double> taps = tapLatencies(demo);
    const std::vector<double> gaps = refreshGaps(demo);
    std::vector<double> deviations;
    deviations.reserve(gaps.size());
    for (const double gap : gaps)
        deviations.push_back(std::abs(gap - kRefreshMs));
    const double tapGoal = kRefreshMs + 3;
    std::printf("release to first changed pixel: median %.2f, 99 of 100 %.2f, longest %.2f ms, goal %.2f\n",
                quantile(taps, 0.5), quantile(taps, 0.99), quantile(taps, 1), tapGoal);
    std::printf("refreshes apart: median %.2f ms; 99 of 100 within %.2f ms of a 60th second, goal 2\n",
                quantile(gaps, 0.5), quantile(deviations, 0.99));
    return quantile(taps, 0.99) <= tapGoal && quantile(deviations, 0.99) <= 2 ? 0 : 1;
}
