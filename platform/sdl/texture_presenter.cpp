#include "platform/sdl/texture_presenter.h"

#include "platform/sdl/pixel_conversion.h"

namespace platform
{
namespace
{

SDL_Texture *makeTexture(SDL_Renderer *renderer)
{
    if (!renderer)
        return nullptr;
    SDL_Texture *texture = SDL_CreateTexture(renderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING,
                                             kScreenSize.width, kScreenSize.height);
    if (texture)
        SDL_SetTextureScaleMode(texture, SDL_ScaleModeNearest);
    return texture;
}

} // namespace

TexturePresenter::TexturePresenter(SDL_Window *window)
    : renderer(SDL_CreateRenderer(window, -1, SDL_RENDERER_ACCELERATED | SDL_RENDERER_PRESENTVSYNC)),
      texture(makeTexture(renderer.get()))
{
}

void TexturePresenter::invalidate()
{
    // Made anew, because it may have gone with the device that held it.
    texture.reset();
    texture.reset(makeTexture(renderer.get()));
}

bool TexturePresenter::upload(const Frame &frame, RowSpan rows)
{
    const SDL_Rect place{0, rows.first, kScreenSize.width, rows.last - rows.first};
    void *pixels = nullptr;
    int pitch = 0;
    if (SDL_LockTexture(texture.get(), &place, &pixels, &pitch) != 0)
        return false;
    auto *row = static_cast<std::byte *>(pixels);
    for (int y = rows.first; y < rows.last; ++y, row += pitch)
        convertRow(rowOf(frame, y), kScreenSize.width, 1, row, pitch);
    SDL_UnlockTexture(texture.get());
    return true;
}

bool TexturePresenter::present(const Frame &frame, const Damage &damage)
{
    if (!texture || !upload(frame, damage.rows))
        return false;
    Size output{};
    SDL_GetRendererOutputSize(renderer.get(), &output.width, &output.height);
    const ScreenLayout layout = layOut(output);
    const SDL_Rect place{layout.left, layout.top, kScreenSize.width * layout.scale,
                         kScreenSize.height * layout.scale};
    SDL_SetRenderDrawColor(renderer.get(), 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer.get());
    SDL_RenderCopy(renderer.get(), texture.get(), nullptr, &place);
    SDL_RenderPresent(renderer.get());
    return true;
}

} // namespace platform
