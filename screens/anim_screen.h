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
    bool activate(Application *current) override;

private:
    Screen *from = nullptr;
    Screen *to = nullptr;
    Application *application = nullptr;
    std::int32_t offset = 0; ///< Top edge of the incoming picture.
    Tick startTick = 0;
    Surface buffer; ///< What the incoming screen draws into.
};

} // namespace mygame
