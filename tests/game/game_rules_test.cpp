#include <utility>
#include <vector>

#include "game/physics.h"
#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

struct GameRulesTest : GameTest {
    /// On hard; nothing comes on its own for five seconds.
    GameRulesTest()
    {
        play(GameMode::Survival, Difficulty::Hard);
        state.asteroids.clear();
    }
};

TEST_F(GameRulesTest, WrapFarDistances)
{
    constexpr struct {
        std::int32_t dx, dy, travelTime, flightMs;
    } kFlights[] = {{300, 0, 2000, 2000},  {0, -150, 2000, 1000},    {-90, 120, 1800, 900},
                    {1, 0, 2000, 6},       {1, 0, 299, 0},           {0, 0, 2000, 0},
                    {300, 0, 0, 0},        {46340, 0, 2000, 308933}, {46341, 0, 2000, 0},
                    {65385, -100, 2000, 0}};
    for (const auto &[dx, dy, travelTime, flightMs] : kFlights)
        EXPECT_EQ(missileFlightMs(dx, dy, travelTime), flightMs) << dx << ' ' << dy << ' ' << travelTime;
    Missile missile;
    for (const auto &[x, inside] : {std::pair{9, true}, {10, false}, {46340, false}, {46341, true}}) {
        missile.x = x;
        EXPECT_EQ(inRange(Asteroid(), missile, 10), inside) << x;
    }
}

TEST_F(GameRulesTest, StartOneSoundInMoreThan100Ms)
{
    const auto soundsOf = [this](std::uint32_t afterMs) {
        device.sounds.clear();
        for (int i = 0; i < 10; ++i)
            EventBus::instance().post<MissileDetonatedEvent>(0, 100, 100);
        frame(afterMs);
        return device.sounds;
    };
    const std::vector<std::string> none, once = {"explosion.wav"};
    EXPECT_EQ(soundsOf(0), once);
    EXPECT_EQ(soundsOf(100), none);
    EXPECT_EQ(soundsOf(1), once);
    state.soundOn = 0;
    EXPECT_EQ(soundsOf(500), none);
}

} // namespace
} // namespace mygame::tests
