/// The whole program without its main loop, driven frame by frame.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "game/events.h"
#include "game/game_state.h"
#include "platform/virtual/virtual_device.h"
#include "shell/application.h"
#include "shell/event_bus.h"
#include "shell/startup.h"

namespace mygame::tests
{

/// One for the process: what has subscribed to the bus stays subscribed.
struct World {
    static World &instance()
    {
        static auto *world = new World;
        return *world;
    }

    Program program;
};

/// A fresh device in use, switched on later than any before it.
struct LaterDevice : platform::VirtualDevice {
    LaterDevice()
    {
        constexpr platform::Tick kMsBetweenDevices = 100000000;
        static platform::Tick tick = 0;
        switchOn(tick += kMsBetweenDevices);
        dataFolder = DATA_FOLDER;
        platform::useDevice(*this);
    }
};

class GameTest : public testing::Test
{
protected:
    /// Nothing is queued and there is no game.
    GameTest()
    {
        state.mode = GameMode::None;
        state.soundOn = 1;
        state.player.health = 0;
        application.setScreen("GAME");
        EventBus::instance().dispatchAll();
        application.setScreen("MAIN_MENU");
        state.asteroids.clear();
        state.missiles.clear();
        state.explosions.clear();
    }

    /// Starts a game and delivers its first frame.
    void play(GameMode mode, Difficulty difficulty = Difficulty::Easy)
    {
        state.mode = mode;
        state.difficulty = difficulty;
        application.setScreen("GAME");
        EventBus::instance().post<NewGameEvent>();
        frame();
    }

    /// Lets time pass, then updates the current screen.
    void frame(std::uint32_t afterMs = 0)
    {
        device.advance(afterMs);
        application.update(device.tick());
    }

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

    LaterDevice device;
    Application &application = World::instance().program.application();
    GameState &state = const_cast<GameState &>(World::instance().program.state()); // tests set scenes up
};

} // namespace mygame::tests
