#pragma once

#include <cstdint>

#include "graphics/surface.h"
#include "shell/screen.h"

namespace mygame
{

/// A transition: one screen stays underneath while another slides up over it, a pixel a millisecond, and then
/// becomes current. Both are drawn in every frame, the incoming one before it is ever activated.
class AnimScreen : public Screen
{
public:
    AnimScreen();

    /// The two screens, not null. To be set before each showing.
    void setScreens(Screen *staying, Screen *incoming);

    void render(Surface &target) override;
    void update(Tick now) override;
    bool activate(Application *application) override;

private:
    Screen *from_ = nullptr;
    Screen *to_ = nullptr;
    Application *application_ = nullptr;
    std::int32_t offset_ = 0; ///< Top edge of the incoming picture.
    Tick startTick_ = 0;
    Surface buffer_; ///< What the incoming screen draws into.
};

} // namespace mygame
