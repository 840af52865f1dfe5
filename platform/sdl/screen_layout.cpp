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

/// The largest size of the screen's shape, at least one pixel.
Size largestIn(Size room)
{
    const int widthForHeight = room.height * kScreenSize.width / kScreenSize.height;
    if (widthForHeight <= room.width)
        return {std::max(1, widthForHeight), std::max(1, room.height)};
    return {std::max(1, room.width), std::max(1, room.width * kScreenSize.height / kScreenSize.width)};
}

/// The screen pixel that lies under the middle of a pixel of the picture.
int pixelAt(int place, int pictureLength, int screenLength)
{
    return floorDivide((std::int64_t{place} * 2 + 1) * screenLength, std::int64_t{pictureLength} * 2);
}

} // namespace

int ScreenLayout::wholeScale() const
{
    const int scale = width / kScreenSize.width;
    return width == scale * kScreenSize.width && height == scale * kScreenSize.height ? scale : 0;
}

ScreenLayout layOut(Size windowPixels)
{
    Size picture = largestIn(windowPixels);
    const int whole = picture.width / kScreenSize.width;
    if (whole * kScreenSize.width * 10 >= picture.width * 9)
        picture = {whole * kScreenSize.width, whole * kScreenSize.height};
    return {(windowPixels.width - picture.width) / 2, (windowPixels.height - picture.height) / 2,
            picture.width, picture.height};
}

Point toScreen(const WindowSize &window, Point place)
{
    const ScreenLayout layout = layOut(window.pixels);
    const int x = toPixels(place.x, window.points.width, window.pixels.width);
    const int y = toPixels(place.y, window.points.height, window.pixels.height);
    return {pixelAt(x - layout.left, layout.width, kScreenSize.width),
            pixelAt(y - layout.top, layout.height, kScreenSize.height)};
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
