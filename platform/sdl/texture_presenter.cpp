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
    multiple.reset();
    texture.reset();
    texture.reset(makeTexture(renderer.get()));
}

SDL_Texture *TexturePresenter::enlarged(const ScreenLayout &layout)
{
    // The next whole multiple; taking that down to the picture's size mixes across the pixels' edges alone.
    const int scale = (layout.width + kScreenSize.width - 1) / kScreenSize.width;
    if (!multiple || scale != multipleScale) {
        multiple.reset(SDL_CreateTexture(renderer.get(), SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_TARGET,
                                         kScreenSize.width * scale, kScreenSize.height * scale));
        multipleScale = scale;
    }
    if (!multiple)
        return texture.get();
    SDL_SetTextureScaleMode(multiple.get(), SDL_ScaleModeLinear);
    SDL_SetRenderTarget(renderer.get(), multiple.get());
    SDL_RenderCopy(renderer.get(), texture.get(), nullptr, nullptr);
    SDL_SetRenderTarget(renderer.get(), nullptr);
    return multiple.get();
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
    const SDL_Rect place{layout.left, layout.top, layout.width, layout.height};
    SDL_Texture *picture = layout.wholeScale() == 0 ? enlarged(layout) : texture.get();
    SDL_SetRenderDrawColor(renderer.get(), 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer.get());
    SDL_RenderCopy(renderer.get(), picture, nullptr, &place);
    SDL_RenderPresent(renderer.get());
    return true;
}

} // namespace platform
