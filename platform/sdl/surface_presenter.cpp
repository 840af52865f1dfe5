#include "platform/sdl/surface_presenter.h"

#include <algorithm>

#include <SDL_surface.h>

#include "platform/sdl/pixel_conversion.h"

namespace platform
{
namespace
{

constexpr std::uint32_t kBlack = 0xFF000000;

bool takesXrgb8888(const SDL_PixelFormat &format)
{
    return format.BytesPerPixel == sizeof(std::uint32_t) && format.Rmask == 0xFF0000 &&
           format.Gmask == 0xFF00 && format.Bmask == 0xFF;
}

std::byte *pixelAt(SDL_Surface &surface, int x, int y)
{
    auto *pixels = static_cast<std::byte *>(surface.pixels);
    pixels += std::ptrdiff_t{y} * surface.pitch;
    pixels += std::ptrdiff_t{x} * static_cast<std::ptrdiff_t>(sizeof(std::uint32_t));
    return pixels;
}

/// Draws rows of a frame at a whole multiple of their size. @return where they lie on the surface.
SDL_Rect drawMultiple(const Frame &frame, RowSpan rows, const ScreenLayout &layout, SDL_Surface &target)
{
    const int scale = layout.wholeScale();
    const SDL_Rect drawn{layout.left, layout.top + rows.first * scale, layout.width,
                         (rows.last - rows.first) * scale};
    std::byte *pixel = pixelAt(target, drawn.x, drawn.y);
    for (int y = rows.first; y < rows.last; ++y, pixel += std::ptrdiff_t{target.pitch} * scale)
        convertRow(rowOf(frame, y), kScreenSize.width, scale, pixel, target.pitch);
    return drawn;
}

} // namespace

/// Draws rows of a frame. @return where they lie on the surface.
SDL_Rect SurfacePresenter::draw(const Frame &frame, RowSpan rows, SDL_Surface &target)
{
    const ScreenLayout layout = layOut({target.w, target.h});
    if (layout.wholeScale() != 0)
        return drawMultiple(frame, rows, layout, target);
    if (layout.width < kScreenSize.width)
        return drawShrunk(frame, layout, target);
    scaler_.resize({layout.width, layout.height});
    const RowSpan shown = scaler_.rowsShowing(rows);
    const SDL_Rect drawn{layout.left, layout.top + shown.first, layout.width, shown.last - shown.first};
    scaler_.draw(frame, shown, pixelAt(target, drawn.x, drawn.y), target.pitch);
    return drawn;
}

SDL_Rect SurfacePresenter::drawShrunk(const Frame &frame, const ScreenLayout &layout, SDL_Surface &target)
{
    SDL_Rect place{layout.left, layout.top, layout.width, layout.height};
    if (!small_)
        small_.reset(SDL_CreateRGBSurfaceWithFormat(0, kScreenSize.width, kScreenSize.height, 32,
                                                    target.format->format));
    if (!small_)
        return place;
    for (int y = 0; y < kScreenSize.height; ++y)
        convertRow(rowOf(frame, y), kScreenSize.width, 1, pixelAt(*small_, 0, y), small_->pitch);
    SDL_SoftStretchLinear(small_.get(), nullptr, &target, &place);
    return place;
}

bool SurfacePresenter::isReady() { return SDL_GetWindowSurface(window_) != nullptr; }

SDL_Surface *SurfacePresenter::drawable(SDL_Surface *shown)
{
    if (takesXrgb8888(*shown->format))
        return shown;
    if (!converted_ || converted_->w != shown->w || converted_->h != shown->h)
        converted_.reset(SDL_CreateRGBSurfaceWithFormat(0, shown->w, shown->h, 32, SDL_PIXELFORMAT_RGB888));
    return converted_.get();
}

bool SurfacePresenter::present(const Frame &frame, const Damage &damage)
{
    SDL_Surface *shown = SDL_GetWindowSurface(window_);
    SDL_Surface *target = shown ? drawable(shown) : nullptr;
    if (!target)
        return false;
    if (damage.surroundings)
        SDL_FillRect(target, nullptr, kBlack);
    SDL_Rect drawn = draw(frame, damage.rows, *target);
    if (damage.surroundings)
        drawn = {0, 0, target->w, target->h};
    if (target != shown) {
        SDL_Rect place = drawn;
        SDL_BlitSurface(target, &drawn, shown, &place);
    }
    return SDL_UpdateWindowSurfaceRects(window_, &drawn, 1) == 0;
}

} // namespace platform
