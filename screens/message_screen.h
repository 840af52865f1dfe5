#pragma once

#include <cstdint>
#include <string>

#include "graphics/bitmap_font.h"
#include "graphics/surface.h"
#include "shell/screen.h"

namespace mygame
{

/// One line of text on a picture; a tap on the bottom strip leads on.
class MessageScreen : public Screen
{
public:
    /// Loads the picture.
    MessageScreen();

    void setFont(const BitmapFont &textFont) { font_ = textFont; }

    /// What to show and where to go from there, not null. To be set before each showing.
    void setMessage(const std::u16string &message, Screen *nextScreen);

    void render(Surface &target) override;
    void pointerUp(std::uint16_t x, std::uint16_t y) override;
    bool activate(Application *application) override;

private:
    Application *application_ = nullptr;
    Screen *next_ = nullptr;
    std::u16string text_;
    BitmapFont font_;
    Surface background_;
};

} // namespace mygame
