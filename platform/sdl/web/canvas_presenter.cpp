#include "platform/sdl/web/canvas_presenter.h"

#include <algorithm>
#include <emscripten.h>

#include <SDL_video.h>

#include "platform/sdl/pixel_conversion.h"

namespace platform
{
namespace
{

// clang-format off
/// Puts the canvas of so many pixels at a place in the page's room for it; it is as large as the size, in the display's
/// pixels, says. Empties it.
EM_JS(void, placeCanvas, (int canvasWidth, int canvasHeight, int left, int top, int width, int height), {
    Module.placeCanvas(canvasWidth, canvasHeight, { left, top, width, height });
});

/// Shows whole rows of the canvas, red, green, blue and 255 for each pixel.
EM_JS(void, showRows, (const std::uint32_t *pixels, int width, int top, int rows), {
    Module.showRows(HEAPU8, pixels, width, top, rows);
});
// clang-format on

constexpr std::uint16_t withRedForBlue(std::uint16_t pixel)
{
    return static_cast<std::uint16_t>(pixel >> 11 | (pixel & 0x07E0) | pixel << 11);
}

ScreenLayout roomLayout(SDL_Window *window)
{
    Size room{};
    SDL_GetWindowSize(window, &room.width, &room.height);
    return layOut(room);
}

} // namespace

bool CanvasPresenter::present(const Frame &frame, const Damage &damage)
{
    const ScreenLayout layout = roomLayout(window_);
    // What is smaller than the screen is for the browser to shrink.
    const bool shrinks = layout.width < kScreenSize.width;
    const Size canvas = shrinks ? kScreenSize : Size{layout.width, layout.height};
    const bool multiple = shrinks || layout.wholeScale() != 0;
    if (damage.surroundings)
        placeCanvas(canvas.width, canvas.height, layout.left, layout.top, layout.width, layout.height);
    if (!multiple)
        scaler_.resize(canvas);
    const std::array<bool, kBands> changed = takeIn(frame);
    for (std::size_t band = 0; band < kBands; ++band) {
        const int first = static_cast<int>(band) * kBandRows;
        if (!changed[band] && !damage.surroundings)
            continue;
        if (multiple)
            drawMultiple({first, first + kBandRows}, canvas.width / kScreenSize.width);
        else
            drawScaled({first, first + kBandRows}, canvas.width);
    }
    return true;
}

std::array<bool, CanvasPresenter::kBands> CanvasPresenter::takeIn(const Frame &frame)
{
    std::array<bool, kBands> changed{};
    std::array<std::uint16_t, kBandPixels> exchanged{};
    for (std::size_t band = 0; band < kBands; ++band) {
        const auto *pixels = frame.data() + band * kBandPixels;
        std::transform(pixels, pixels + kBandPixels, exchanged.begin(), withRedForBlue);
        auto *kept = exchanged_.data() + band * kBandPixels;
        changed[band] = !std::equal(exchanged.begin(), exchanged.end(), kept);
        std::copy(exchanged.begin(), exchanged.end(), kept);
    }
    return changed;
}

void CanvasPresenter::drawMultiple(RowSpan rows, int scale)
{
    const int width = kScreenSize.width * scale;
    const std::ptrdiff_t pitch = width * static_cast<std::ptrdiff_t>(sizeof(std::uint32_t));
    std::byte *target = pixels(width, kBandRows * scale);
    for (int y = rows.first; y < rows.last; ++y, target += scale * pitch)
        convertRow(rowOf(exchanged_, y), kScreenSize.width, scale, target, pitch);
    showRows(pixels_.data(), width, rows.first * scale, kBandRows * scale);
}

void CanvasPresenter::drawScaled(RowSpan rows, int width)
{
    const std::ptrdiff_t pitch = width * static_cast<std::ptrdiff_t>(sizeof(std::uint32_t));
    const RowSpan shown = scaler_.rowsShowing(rows);
    const int count = shown.last - shown.first;
    scaler_.draw(exchanged_, shown, pixels(width, count), pitch);
    showRows(pixels_.data(), width, shown.first, count);
}

std::byte *CanvasPresenter::pixels(int width, int rows)
{
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(rows);
    if (pixels_.size() < count)
        pixels_.resize(count);
    return reinterpret_cast<std::byte *>(pixels_.data());
}

} // namespace platform
