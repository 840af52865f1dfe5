#include "platform/sdl/screen_layout.h"

#include <algorithm>
#include <cstdint>

namespace platform
{
namespace
{

constexpr int floorDivide(std::int64_t dividend, std::int64_t divisor)
{
    const std::int64_t quotient = dividend / divisor;
    return static_cast<int>(dividend % divisor < 0 ? quotient - 1 : quotient);
}

int toPixels(int place, int points, int pixels)
{
    return points < 1 ? place : floorDivide(std::int64_t{place} * pixels, points);
}

} // namespace

ScreenLayout layOut(Size windowPixels)
{
    const int fitting =
        std::min(windowPixels.width / kScreenSize.width, windowPixels.height / kScreenSize.height);
    const int scale = std::max(1, fitting);
    return {scale, (windowPixels.width - kScreenSize.width * scale) / 2,
            (windowPixels.height - kScreenSize.height * scale) / 2};
}

Point toScreen(const WindowSize &window, Point place)
{
    const ScreenLayout layout = layOut(window.pixels);
    const int x = toPixels(place.x, window.points.width, window.pixels.width);
    const int y = toPixels(place.y, window.points.height, window.pixels.height);
    return {floorDivide(x - layout.left, layout.scale), floorDivide(y - layout.top, layout.scale)};
}

bool isOnScreen(Point pixel)
{
    return pixel.x >= 0 && pixel.y >= 0 && pixel.x < kScreenSize.width && pixel.y < kScreenSize.height;
}

Point nearestOnScreen(Point pixel)
{
    return {std::clamp(pixel.x, 0, kScreenSize.width - 1), std::clamp(pixel.y, 0, kScreenSize.height - 1)};
}

} // namespace platform
