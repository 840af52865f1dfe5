#include "platform/sdl/web/canvas_presenter.h"

#include <algorithm>
#include <emscripten.h>

#include <SDL_video.h>

#include "platform/sdl/pixel_conversion.h"

namespace platform
{
namespace
{

/// Rows of the canvas that are drawn at a time: they fit into the processor's cache, and no whole picture of
/// a large display has to be kept.
constexpr int kRowsAtATime = 64;

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
    const RowSpan rows = damage.surroundings ? kAllRows : damage.rows;
    if (damage.surroundings)
        placeCanvas(canvas.width, canvas.height, layout.left, layout.top, layout.width, layout.height);
    std::transform(rowOf(frame, rows.first), rowOf(frame, rows.last),
                   exchanged_.data() + std::ptrdiff_t{rows.first} * kScreenSize.width, withRedForBlue);
    if (shrinks || layout.wholeScale() != 0) {
        drawMultiple(rows, canvas.width / kScreenSize.width);
    } else {
        scaler_.resize(canvas);
        drawScaled(scaler_.rowsShowing(rows));
    }
    return true;
}

void CanvasPresenter::drawMultiple(RowSpan rows, int scale)
{
    const int width = kScreenSize.width * scale;
    const std::ptrdiff_t pitch = width * static_cast<std::ptrdiff_t>(sizeof(std::uint32_t));
    const int rowsAtATime = std::max(1, kRowsAtATime / scale);
    for (int y = rows.first; y < rows.last; y += rowsAtATime) {
        const int count = std::min(rowsAtATime, rows.last - y);
        std::byte *target = pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(count * scale));
        for (int i = 0; i < count; ++i)
            convertRow(rowOf(exchanged_, y + i), kScreenSize.width, scale, target + i * scale * pitch, pitch);
        showRows(pixels_.data(), width, y * scale, count * scale);
    }
}

void CanvasPresenter::drawScaled(RowSpan rows)
{
    const int width = roomLayout(window_).width;
    const std::ptrdiff_t pitch = width * static_cast<std::ptrdiff_t>(sizeof(std::uint32_t));
    for (int y = rows.first; y < rows.last; y += kRowsAtATime) {
        const int count = std::min(kRowsAtATime, rows.last - y);
        scaler_.draw(exchanged_, {y, y + count}, pixels(static_cast<std::size_t>(width * count)), pitch);
        showRows(pixels_.data(), width, y, count);
    }
}

std::byte *CanvasPresenter::pixels(std::size_t count)
{
    if (pixels_.size() < count)
        pixels_.resize(count);
    return reinterpret_cast<std::byte *>(pixels_.data());
}

} // namespace platform
