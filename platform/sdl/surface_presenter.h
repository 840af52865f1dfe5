#pragma once

#include <memory>

#include <SDL_video.h>

#include "platform/sdl/picture_scaler.h"
#include "platform/sdl/presenter.h"

namespace platform
{

/// Shows frames through the memory that the window system shares with the program. The least work where there
/// is no graphics processor.
class SurfacePresenter final : public Presenter
{
public:
    /// The window must outlive the presenter.
    explicit SurfacePresenter(SDL_Window *window) : window_(window) {}

    bool isReady() override;
    bool present(const Frame &frame, const Damage &damage) override;
    void invalidate() override {}
    VerticalSync verticalSync() const override { return VerticalSync::Off; }

private:
    struct FreeSurface {
        void operator()(SDL_Surface *surface) const { SDL_FreeSurface(surface); }
    };

    SDL_Surface *drawable(SDL_Surface *shown);
    SDL_Rect draw(const Frame &frame, RowSpan rows, SDL_Surface &target);
    SDL_Rect drawShrunk(const Frame &frame, const ScreenLayout &layout, SDL_Surface &target);

    SDL_Window *window_;
    PictureScaler scaler_;
    /// A frame at its own size, where it is to be shown at less.
    std::unique_ptr<SDL_Surface, FreeSurface> small_;
    /// What is drawn into where the window has pixels of another kind.
    std::unique_ptr<SDL_Surface, FreeSurface> converted_;
};

} // namespace platform
