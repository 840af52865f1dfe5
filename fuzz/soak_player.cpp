#include "fuzz/soak_player.h"

#include <iterator>

#include "game/game_state.h"
#include "shell/application.h"

namespace soak
{
namespace
{

constexpr std::uint32_t kScreenWidth = 240;
constexpr std::uint32_t kScreenHeight = 320;
/// That a recording can name.
constexpr std::uint32_t kLongestFrameMs = 10000;

} // namespace

Player::Player(platform::VirtualDevice &device, mygame::Program &program, std::uint32_t seed)
    : device_(device), program_(program), random_(seed)
{
}

std::uint32_t Player::below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_()) % limit; }

bool Player::oneIn(int count) { return below(static_cast<std::uint32_t>(count)) == 0; }

bool Player::isCurrent(const std::string &screen) const
{
    mygame::Application &application = program_.application();
    return application.currentScreen() == application.findScreen(screen);
}

int Player::post(std::uint32_t message, std::uint32_t wParam, std::uint32_t lParam)
{
    device_.post(message, wParam, lParam);
    return 1;
}

int Player::send(std::uint32_t message, std::uint32_t x, std::uint32_t y)
{
    return post(message, 0, y << 16 | x);
}

int Player::act()
{
    changeDevice();
    // Never both: a tap may lead to a screen on which a key ends the program.
    return oneIn(40) ? disturb() : playScreen();
}

int Player::playScreen()
{
    if (isCurrent("MAIN_MENU"))
        return playMainMenu();
    if (isCurrent("GAME"))
        return playGame();
    if (isCurrent("SHOP"))
        return playShop();
    return oneIn(30) ? send(platform::WM_LBUTTONUP, below(kScreenWidth), 300) : 0;
}

int Player::playMainMenu()
{
    if (!oneIn(10))
        return 0;
    // The top list ends in "Exit"; the others are shown while there is no game.
    const mygame::GameState &state = program_.state();
    const bool topList = state.player.health != mygame::Player::kNoGame;
    const std::uint32_t lastSafeY = topList ? 174 : 204;
    return send(platform::WM_LBUTTONUP, 61 + below(119), 100 + below(lastSafeY - 100));
}

int Player::playGame()
{
    if (oneIn(150))
        return send(platform::WM_LBUTTONDOWN, 211 + below(29), 291 + below(29));
    if (oneIn(50))
        return send(platform::WM_LBUTTONDOWN, below(33), 297 + below(23));
    if (oneIn(40))
        return send(platform::WM_LBUTTONDOWN, 61 + below(119), 130 + below(60));
    const auto &asteroids = program_.state().asteroids;
    if (asteroids.empty() || !oneIn(4))
        return oneIn(20) ? tapAnywhere() : 0;
    const auto &target =
        std::next(asteroids.begin(), below(static_cast<std::uint32_t>(asteroids.size())))->second;
    const auto lead = static_cast<std::int32_t>(below(60));
    return send(platform::WM_LBUTTONDOWN, static_cast<std::uint16_t>(target.x),
                static_cast<std::uint16_t>(target.y + lead));
}

int Player::playShop()
{
    if (oneIn(60))
        return send(platform::WM_LBUTTONUP, 170, 290);
    if (oneIn(3))
        return send(platform::WM_LBUTTONUP, 60, 290);
    return send(platform::WM_LBUTTONUP, 28 + below(142), 28 + below(53));
}

int Player::tapAnywhere()
{
    constexpr std::uint32_t kMessages[] = {platform::WM_LBUTTONDOWN, platform::WM_MOUSEMOVE};
    const bool farAway = oneIn(3);
    const std::uint32_t width = farAway ? 65536 : kScreenWidth;
    const std::uint32_t height = farAway ? 65536 : kScreenHeight;
    return send(kMessages[below(2)], oneIn(10) ? 65535 : below(width), oneIn(10) ? 65535 : below(height));
}

int Player::disturb()
{
    switch (below(4)) {
    case 0:
        if (device_.inForeground())
            device_.leaveForeground();
        else
            device_.enterForeground();
        return 2;
    case 1:
        return pressHarmlessKey();
    case 2:
        return sendUnknownMessage();
    default:
        return isCurrent("MAIN_MENU") ? 0 : tapAnywhere();
    }
}

int Player::pressHarmlessKey()
{
    const bool endsOnPress = isCurrent("GAME") || isCurrent("GAME_OVER");
    const bool endsOnRelease = isCurrent("MAIN_MENU");
    const bool press = !endsOnPress && (endsOnRelease || oneIn(2));
    return post(press ? platform::WM_KEYDOWN : platform::WM_KEYUP, below(65536), 0);
}

int Player::sendUnknownMessage()
{
    constexpr std::uint32_t kFirstUnknown = platform::WM_LBUTTONUP + 1;
    return post(kFirstUnknown + below(65536), static_cast<std::uint32_t>(random_()),
                static_cast<std::uint32_t>(random_()));
}

void Player::changeDevice()
{
    if (oneIn(300))
        device_.frameBufferOn = !device_.frameBufferOn;
    if (!oneIn(200))
        return;
    constexpr std::uint32_t kCosts[] = {0, 1, 7, 16, 16, 16, 16, 33, 100, 1000};
    device_.frameCostMs = kCosts[below(std::size(kCosts))];
    // A few frames of it lose minutes.
    if (oneIn(20))
        device_.frameCostMs = kLongestFrameMs;
}

} // namespace soak
