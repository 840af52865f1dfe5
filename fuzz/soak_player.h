#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "platform/virtual/virtual_device.h"
#include "shell/startup.h"

namespace soak
{

/// Plays at random, half sensibly: aims at asteroids, finds its way through menus and shop, and does
/// everything that a player, a window system and a slow device can do, except what ends the program.
class Player
{
public:
    Player(platform::VirtualDevice &device, mygame::Program &program, std::uint32_t seed);

    /// Does something, or nothing, in a pass of the main loop. @return the messages that it queued.
    int act();

private:
    bool oneIn(int count);
    std::uint32_t below(std::uint32_t limit);
    bool isCurrent(const std::string &screen) const;

    int playScreen();
    int playMainMenu();
    int playGame();
    int playShop();
    int disturb();
    int pressHarmlessKey();
    int sendUnknownMessage();
    void changeDevice();

    int post(std::uint32_t message, std::uint32_t wParam, std::uint32_t lParam);
    int send(std::uint32_t message, std::uint32_t x, std::uint32_t y);
    int tapAnywhere();

    platform::VirtualDevice &device_;
    mygame::Program &program_;
    std::mt19937 random_;
};

} // namespace soak
