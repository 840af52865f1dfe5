#pragma once

#include <memory>

#include <SDL_render.h>

#include "platform/desktop/display_connection.h"
#include "platform/desktop/presenter.h"

namespace platform
{

/// Shows frames through a graphics processor, in step with the display.
class TexturePresenter final : public Presenter
{
public:
    /// The window must outlive the presenter and be made for OpenGL.
    explicit TexturePresenter(SDL_Window *window);

    bool isReady() override { return texture != nullptr; }
    void present(const Frame &frame, RowSpan changed) override;
    void invalidate() override;
    VerticalSync verticalSync() const override { return VerticalSync::On; }

private:
    /// What belongs to a lost display stays with SDL's window.
    struct Destroy {
        void operator()(SDL_Renderer *renderer) const
        {
            if (!isDisplayLost())
                SDL_DestroyRenderer(renderer);
        }
        void operator()(SDL_Texture *texture) const
        {
            if (!isDisplayLost())
                SDL_DestroyTexture(texture);
        }
    };

    void upload(const Frame &frame, RowSpan rows);

    std::unique_ptr<SDL_Renderer, Destroy> renderer;
    std::unique_ptr<SDL_Texture, Destroy> texture;
    bool whole = true; ///< The texture holds nothing yet.
};

} // namespace platform
