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

TEST_F(GameRulesTest, BlastStrictlyWithin28Pixels)
{
    hang(1, 128, 100);
    hang(2, 100, 127);
    hang(3, 119, 80); // 19 * 19 + 20 * 20 is below 28 * 28
    hang(4, 120, 80);
    aim(9, 100, 100);
    state.missiles[9].flightMs = 5;
    EXPECT_EQ(frame(5), "tick") << "at the end of its flight, not after it";
    EXPECT_EQ(frame(1), "tick, detonated, destroyed, destroyed");
    EXPECT_TRUE(state.asteroids.contains(1) && state.asteroids.contains(4));
    EXPECT_EQ(state.player.money, 200);
}

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

TEST_F(GameRulesTest, LetNothingComeOrEndWithoutAMode)
{
    for (const GameMode mode : {GameMode::None, static_cast<GameMode>(-1), static_cast<GameMode>(99)}) {
        play(mode, Difficulty::Hard);
        EXPECT_TRUE(state.asteroids.empty() && state.player.missileSlots == 0);
        EXPECT_EQ(rulesOf(mode).clock(state), u"");
        EXPECT_EQ(frame(200000), "tick");
        EXPECT_TRUE(canResume(state)) << "its time is never up";
        state.player.health = 0;
        EventBus::instance().post<GameEndedEvent>();
        EXPECT_EQ(frame(), "ended, tick");
        EXPECT_EQ(application.currentScreen(), application.findScreen("GAME")) << "no other screen follows";
        EXPECT_FALSE(canResume(state));
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

TEST_F(GameRulesTest, WearThePropulsionDownToNothing)
{
    application.setScreen("SHOP");
    tap(98, 54);
    state.player.money = 118000; // for 59
    for (int purchase = 1; purchase <= 60; ++purchase) {
        tap(15, 301); // buys
        EXPECT_EQ(state.missileTravelTime > 0, purchase < 56) << purchase;
    }
    EXPECT_EQ(state.player.money, 0);
    application.setScreen("GAME");
    tap(100, 100);
    EXPECT_EQ(frame(), "resume, fire, tick, launched, detonated");
}

} // namespace
} // namespace mygame::tests
