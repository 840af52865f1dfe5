#include "game/player.h"

#include <cmath>

#include "game/events.h"
#include "graphics/screen_size.h"
#include "shell/event_bus.h"

namespace mygame
{
namespace
{

constexpr float kRadianPerMs = 0.002f;
constexpr double kOrbitCentreX = kScreenCentreX;
constexpr double kOrbitCentreY = kScreenHeight - 20;
constexpr double kOrbitRadiusX = 30;
constexpr double kOrbitRadiusY = 10;

constexpr std::int32_t kGaugeLeft = 1;
constexpr std::int32_t kGaugeRight = 5;
constexpr std::int32_t kGaugeTop = 110;
constexpr std::int32_t kGaugeBottom = kScreenHeight - 10;
constexpr std::int32_t kGaugePixelsPerPoint = 2;

/// The health whose bar would begin at y = 0.
constexpr std::int32_t kGaugeOrigin = kGaugeBottom / kGaugePixelsPerPoint;

} // namespace

void Player::updateOrbit(Tick now)
{
    const float angle = static_cast<float>(msBetween(orbitStart, now)) * kRadianPerMs;
    x = static_cast<std::int32_t>(std::cos(double{angle}) * kOrbitRadiusX + kOrbitCentreX);
    y = static_cast<std::int32_t>(std::sin(double{angle}) * kOrbitRadiusY + kOrbitCentreY);
}

void Player::takeDamage(std::int32_t amount)
{
    health -= amount;
    // Kept: at exactly 0 nothing is posted; whether that ends a game is for the mode to say.
    if (health < 0) {
        health = 0;
        EventBus::instance().post<GameEndedEvent>();
    }
}

void Player::drawPlayer(Surface &target) const
{
    satellite.blitCentredTo(target, x, y);
    target.drawRect(kGaugeLeft, kGaugeTop, kGaugeRight, kGaugeBottom, kGreen);
    target.fillRect(kGaugeLeft, (kGaugeOrigin - health) * kGaugePixelsPerPoint, kGaugeRight, kGaugeBottom,
                    kGreen);
}

} // namespace mygame
