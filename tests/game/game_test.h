/// The whole program without its main loop, driven frame by frame.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "game/game_state.h"
#include "platform/virtual/virtual_device.h"
#include "shell/application.h"
#include "shell/event_bus.h"

namespace mygame::tests
{

/// The program's pictures without those that cover the whole screen: a screen is black but for what it draws
/// itself.
class GameTest : public testing::Test
{
protected:
    /// A fresh device, later than any test before it; nothing is queued and there is no game.
    GameTest();

    /// Starts a game and delivers its first frame.
    void play(GameMode mode, Difficulty difficulty = Difficulty::Easy);

    /// Lets time pass, then updates the current screen. @return what was delivered in this frame.
    std::string frame(std::uint32_t afterMs = 0);

    void tap(std::uint16_t x, std::uint16_t y)
    {
        application.pointerDown(x, y);
        application.pointerUp(x, y);
    }

    /// Puts an asteroid where it stays.
    void hang(std::int32_t id, std::int32_t x, std::int32_t y)
    {
        state.asteroids[id] = {{}, id, x, y, x, y, device.tick(), 1000, x, y};
    }

    /// Puts a missile where it stays for a second.
    void aim(std::int32_t id, std::int32_t x, std::int32_t y)
    {
        state.missiles[id] = {x, y, x, y, device.tick(), 1000, x, y, nullptr, id};
    }

    bool isCurrent(const char *screen) const
    {
        return application.currentScreen() == application.findScreen(screen);
    }

    platform::VirtualDevice &device;
    Application &application;
    GameState &state;
};

} // namespace mygame::tests
