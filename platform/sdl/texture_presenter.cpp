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
    : renderer_(SDL_CreateRenderer(window, -1, SDL_RENDERER_ACCELERATED | SDL_RENDERER_PRESENTVSYNC)),
      texture_(makeTexture(renderer_.get()))
{
}

void TexturePresenter::invalidate()
{
    // Made anew, because it may have gone with the device that held it.
    multiple_.reset();
    texture_.reset();
    texture_.reset(makeTexture(renderer_.get()));
}

void TexturePresenter::abandon()
{
    static_cast<void>(multiple_.release());
    static_cast<void>(texture_.release());
    static_cast<void>(renderer_.release());
}

SDL_Texture *TexturePresenter::enlarged(const ScreenLayout &layout)
{
    // The next whole multiple; taking that down to the picture's size mixes across the pixels' edges alone.
    const int scale = (layout.width + kScreenSize.width - 1) / kScreenSize.width;
    if (!multiple_ || scale != multipleScale_) {
        multiple_.reset(SDL_CreateTexture(renderer_.get(), SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_TARGET,
                                          kScreenSize.width * scale, kScreenSize.height * scale));
        multipleScale_ = scale;
    }
    if (!multiple_)
        return texture_.get();
    SDL_SetTextureScaleMode(multiple_.get(), SDL_ScaleModeLinear);
    SDL_SetRenderTarget(renderer_.get(), multiple_.get());
    SDL_RenderCopy(renderer_.get(), texture_.get(), nullptr, nullptr);
    SDL_SetRenderTarget(renderer_.get(), nullptr);
    return multiple_.get();
}

bool TexturePresenter::upload(const Frame &frame, RowSpan rows)
{
    const SDL_Rect place{0, rows.first, kScreenSize.width, rows.last - rows.first};
    void *pixels = nullptr;
    int pitch = 0;
    if (SDL_LockTexture(texture_.get(), &place, &pixels, &pitch) != 0)
        return false;
    auto *row = static_cast<std::byte *>(pixels);
    for (int y = rows.first; y < rows.last; ++y, row += pitch)
        convertRow(rowOf(frame, y), kScreenSize.width, 1, row, pitch);
    SDL_UnlockTexture(texture_.get());
    return true;
}

bool TexturePresenter::present(const Frame &frame, const Damage &damage)
{
    if (!texture_ || !upload(frame, damage.rows))
        return false;
    Size output{};
    SDL_GetRendererOutputSize(renderer_.get(), &output.width, &output.height);
    const ScreenLayout layout = layOut(output);
    const SDL_Rect place{layout.left, layout.top, layout.width, layout.height};
    SDL_Texture *picture = layout.wholeScale() == 0 ? enlarged(layout) : texture_.get();
    SDL_SetRenderDrawColor(renderer_.get(), 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer_.get());
    SDL_RenderCopy(renderer_.get(), picture, nullptr, &place);
    SDL_RenderPresent(renderer_.get());
    return true;
}

} // namespace platform
