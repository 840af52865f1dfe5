#pragma once

#include <array>
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
    /// A frame is drawn in bands of some rows each, where it changed: what is drawn fits into the processor's
    /// cache then, and no whole picture of a large display has to be kept.
    static constexpr int kBandRows = 16;
    static constexpr std::size_t kBands = kScreenSize.height / kBandRows;
    static constexpr std::size_t kBandPixels = std::size_t{kScreenSize.width} * kBandRows;
    static_assert(kBands * kBandRows == kScreenSize.height);

    std::array<bool, kBands> takeIn(const Frame &frame);
    void drawMultiple(RowSpan rows, int scale);
    void drawScaled(RowSpan rows, int width);
    std::byte *pixels(int width, int rows);

    SDL_Window *window_;
    PictureScaler scaler_;
    Frame exchanged_{}; ///< What is shown, with red in the place of blue: a canvas has red first.
    std::vector<std::uint32_t> pixels_;
};

} // namespace platform
