#pragma once

#include <vector>

#include "platform/sdl/picture_scaler.h"
#include "platform/sdl/presenter.h"

namespace platform
{

/// Shows frames on the page's canvas, which is as large as the picture, in the display's pixels.
class CanvasPresenter final : public Presenter
{
public:
    /// The window, whose size is the room that the page has, must outlive the presenter.
    explicit CanvasPresenter(SDL_Window *window) : window_(window) {}

    bool isReady() override { return true; }
    bool present(const Frame &frame, const Damage &damage) override;
    void invalidate() override {}
    /// The program is only called at refreshes.
    VerticalSync verticalSync() const override { return VerticalSync::On; }

private:
    void drawMultiple(RowSpan rows, int scale);
    void drawScaled(RowSpan rows);
    std::byte *pixels(std::size_t count);

    SDL_Window *window_;
    PictureScaler scaler_;
    Frame exchanged_{}; ///< What is shown, with red in the place of blue: a canvas has red first.
    std::vector<std::uint32_t> pixels_;
};

} // namespace platform
