#pragma once

#include <cstdint>

#include "graphics/ticks.h"

namespace mygame
{

class Application;
class Surface;

/// What the player sees and touches at one time. Exactly one screen is current; the others keep their state.
/// Every operation does nothing unless a screen overrides it.
class Screen
{
public:
    /// Draws the whole picture into a surface of the screen's size.
    virtual void render(Surface &) {}

    /// Advances to a moment; after `render` in every frame.
    virtual void update(Tick) {}

    /// A hardware button was pressed or released, given by its virtual key code.
    virtual void keyDown(std::uint16_t) {}
    virtual void keyUp(std::uint16_t) {}

    /// The stylus moved, lifted or touched at x, y in pixels; never negative, but possibly outside the
    /// screen.
    virtual void pointerMove(std::uint16_t, std::uint16_t) {}
    virtual void pointerUp(std::uint16_t, std::uint16_t) {}
    virtual void pointerDown(std::uint16_t, std::uint16_t) {}

    /// The screen becomes current; it may keep the application's address to switch screens or end the
    /// program. May run before there is a window. The result does not matter to a switch of screens.
    virtual bool activate(Application *) { return true; }

    /// The screen stops being current.
    virtual void deactivate() {}

    virtual ~Screen() = default;
};

} // namespace mygame
