#pragma once

#include <memory>

#include <SDL_render.h>

#include "platform/sdl/presenter.h"

namespace platform
{

/// Shows frames through a graphics processor, in step with the display.
class TexturePresenter final : public Presenter
{
public:
    /// The window must outlive the presenter and be made for OpenGL.
    explicit TexturePresenter(SDL_Window *window);

    bool isReady() override { return texture_ != nullptr; }
    bool present(const Frame &frame, const Damage &damage) override;
    void invalidate() override;
    void abandon() override;
    VerticalSync verticalSync() const override { return VerticalSync::On; }

private:
    struct Destroy {
        void operator()(SDL_Renderer *renderer) const { SDL_DestroyRenderer(renderer); }
        void operator()(SDL_Texture *texture) const { SDL_DestroyTexture(texture); }
    };

    SDL_Texture *enlarged(const ScreenLayout &layout);
    bool upload(const Frame &frame, RowSpan rows);

    std::unique_ptr<SDL_Renderer, Destroy> renderer_;
    std::unique_ptr<SDL_Texture, Destroy> texture_;  ///< The frame at its own size.
    std::unique_ptr<SDL_Texture, Destroy> multiple_; ///< At a whole multiple; null until it is needed.
    int multipleScale_ = 0;
};

} // namespace platform
