#pragma once

#include <cstdint>

#include "graphics/bitmap_font.h"
#include "graphics/surface.h"
#include "shell/screen.h"

namespace mygame
{

/// The end of a lost game: a picture and four lines, the same every time. It can be drawn
/// before it was ever activated, as a transition does.
class GameOverScreen : public Screen
{
public:
    /// Loads the picture.
    GameOverScreen();

    void setFont(const BitmapFont &textFont) { font_ = textFont; }

    void render(Surface &target) override;
    void keyDown(std::uint16_t key) override;
    void pointerUp(std::uint16_t x, std::uint16_t y) override;
    bool activate(Application *application) override;

private:
    Application *application_ = nullptr;
    Surface background_;
    BitmapFont font_;
};

} // namespace mygame
