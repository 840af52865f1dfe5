#include "platform/sdl/surface_presenter.h"

#include <algorithm>

#include <SDL_surface.h>

#include "platform/sdl/pixel_conversion.h"

namespace platform
{
namespace
{

constexpr std::uint32_t kBlack = 0xFF000000;

/// The part of a length that lies inside both the picture and the window.
struct Visible {
    int first; ///< In screen pixels.
    int count;
    int start; ///< In window pixels.
};

Visible clip(int origin, int scale, int screenLength, int windowLength)
{
    const int first = origin < 0 ? -origin : 0;
    const int start = std::max(origin, 0);
    return {first, std::min(screenLength - first, (windowLength - start) / scale), start};
}

bool takesXrgb8888(const SDL_PixelFormat &format)
{
    return format.BytesPerPixel == sizeof(std::uint32_t) && format.Rmask == 0xFF0000 &&
           format.Gmask == 0xFF00 && format.Bmask == 0xFF;
}

/// Draws rows of a frame. @return where they lie on the surface.
SDL_Rect draw(const Frame &frame, RowSpan rows, SDL_Surface &target)
{
    const ScreenLayout layout = layOut({target.w, target.h});
    const Visible across = clip(layout.left, layout.scale, kScreenSize.width, target.w);
    const Visible down = clip(layout.top, layout.scale, kScreenSize.height, target.h);
    const int first = std::max(rows.first, down.first);
    const int last = std::min(rows.last, down.first + down.count);
    const SDL_Rect drawn{across.start, down.start + (first - down.first) * layout.scale,
                         across.count * layout.scale, std::max(0, last - first) * layout.scale};
    auto *pixel = static_cast<std::byte *>(target.pixels) + std::ptrdiff_t{drawn.y} * target.pitch +
                  std::ptrdiff_t{drawn.x} * static_cast<std::ptrdiff_t>(sizeof(std::uint32_t));
    for (int y = first; y < last; ++y, pixel += std::ptrdiff_t{target.pitch} * layout.scale)
        convertRow(rowOf(frame, y) + across.first, across.count, layout.scale, pixel, target.pitch);
    return drawn;
}

} // namespace

bool SurfacePresenter::isReady() { return SDL_GetWindowSurface(window) != nullptr; }

SDL_Surface *SurfacePresenter::drawable(SDL_Surface *shown)
{
    if (takesXrgb8888(*shown->format))
        return shown;
    if (!converted || converted->w != shown->w || converted->h != shown->h)
        converted.reset(SDL_CreateRGBSurfaceWithFormat(0, shown->w, shown->h, 32, SDL_PIXELFORMAT_RGB888));
    return converted.get();
}

bool SurfacePresenter::present(const Frame &frame, const Damage &damage)
{
    SDL_Surface *shown = SDL_GetWindowSurface(window);
    SDL_Surface *target = shown ? drawable(shown) : nullptr;
    if (!target)
        return false;
    if (damage.surroundings)
        SDL_FillRect(target, nullptr, kBlack);
    SDL_Rect drawn = draw(frame, damage.surroundings ? kAllRows : damage.rows, *target);
    if (damage.surroundings)
        drawn = {0, 0, target->w, target->h};
    if (target != shown) {
        SDL_Rect place = drawn;
        SDL_BlitSurface(target, &drawn, shown, &place);
    }
    return SDL_UpdateWindowSurfaceRects(window, &drawn, 1) == 0;
}

} // namespace platform
