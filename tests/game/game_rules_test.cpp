#include <utility>

#include "game/physics.h"
#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

class GameRulesTest : public GameTest
{
protected:
    /// On hard; nothing comes on its own for five seconds.
    GameRulesTest() { playUnderEmptySky(); }

    void playUnderEmptySky()
    {
        play(GameMode::Survival, Difficulty::Hard);
        state.asteroids.clear();
    }
};

TEST_F(GameRulesTest, CountADirectHitAndItsBlast)
{
    hang(1, 100, 100);
    aim(2, 110, 100);
    EXPECT_EQ(frame(), "tick") << "10 pixels are not a hit";
    aim(2, 109, 100);
    EXPECT_EQ(frame(), "tick, detonated 2, destroyed 1, destroyed 1");
    EXPECT_EQ(state.player.money, 200);
    EXPECT_EQ(state.asteroidsDestroyed, 2);
    EXPECT_EQ(state.explosions.size(), 3u);
    EXPECT_TRUE(state.asteroids.empty() && state.missiles.empty());
}

TEST_F(GameRulesTest, CountEveryPairOfADirectHit)
{
    hang(1, 100, 100);
    aim(2, 95, 100);
    aim(3, 105, 100);
    EXPECT_EQ(frame(), "tick, detonated 2, destroyed 1, detonated 3, destroyed 1, destroyed 1");
    EXPECT_EQ(state.player.money, 300) << "the second blast finds nothing";
    hang(4, 200, 100);
    hang(5, 209, 100);
    aim(6, 205, 100);
    EXPECT_EQ(frame(), "tick, detonated 6, destroyed 4, detonated 6, destroyed 5, destroyed 4, destroyed 5");
    EXPECT_EQ(state.player.money, 700);
    EXPECT_EQ(state.explosions.size(), 5u + 6u) << "each is shown, whether or not the object still was there";
}

TEST_F(GameRulesTest, BlastStrictlyWithin28Pixels)
{
    hang(1, 128, 100);
    hang(2, 100, 127);
    hang(3, 119, 80); // 19 * 19 + 20 * 20 is below 28 * 28
    hang(4, 120, 80);
    aim(9, 100, 100);
    state.missiles[9].flightMs = 5;
    EXPECT_EQ(frame(5), "tick") << "at the end of its flight, not after it";
    EXPECT_EQ(frame(1), "tick, detonated 9, destroyed 2, destroyed 3");
    EXPECT_TRUE(state.asteroids.contains(1) && state.asteroids.contains(4));
    EXPECT_EQ(state.player.money, 200);
}

TEST_F(GameRulesTest, FlyMissilesPastTheirTarget)
{
    state.player.x = 100;
    state.player.y = 200;
    tap(100, 100);
    tap(100, 50);
    EXPECT_EQ(frame(), "fire, fire, tick, launched") << "one slot on hard";
    Missile &missile = state.missiles.begin()->second;
    EXPECT_EQ(missile.flightMs, 666);
    frame(333);
    EXPECT_EQ(missile.y, 150);
    frame(667);
    ASSERT_EQ(state.explosions.size(), 1u);
    EXPECT_EQ(state.explosions.rbegin()->second.y, 200 - 100 * 1000 / 666);
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

TEST_F(GameRulesTest, StrikeTheEarthBelowItsEdge)
{
    constexpr struct {
        std::int32_t x, edge;
    } kEdges[] = {{113, 260}, {117, 260}, {118, 261}, {108, 261}, {0, 283}, {229, 284}};
    for (const auto &[x, edge] : kEdges) {
        state.player.health = 100;
        hang(1, x, edge);
        EXPECT_EQ(frame(), "tick") << x;
        hang(1, x, edge + 1);
        EXPECT_EQ(frame(), "tick, hit, destroyed 1") << x;
        EXPECT_EQ(state.player.health, 90);
    }
    EXPECT_EQ(state.player.money, 0);
    state.player.health = 5;
    hang(1, 113, 261);
    EXPECT_EQ(frame(), "tick, hit, destroyed 1, ended");
    EXPECT_EQ(state.player.health, 0);
    EXPECT_TRUE(isCurrent("MESSAGE"));
}

TEST_F(GameRulesTest, ShiftTheClocksBackToTheLastPauseWheneverTheyResume)
{
    hang(1, 0, 0);
    state.asteroids[1].targetX = 100;
    tap(211, 291);
    frame();
    application.setScreen("MAIN_MENU");
    application.setScreen("GAME");
    frame(60000);
    EXPECT_EQ(state.elapsedMs, 0);
    frame(500);
    EXPECT_EQ(state.asteroids[1].x, 50);
    EXPECT_EQ(frame(4500), "tick");
    EXPECT_EQ(frame(1).substr(0, 13), "tick, spawned") << "after five seconds of the game";
    application.setScreen("GAME"); // resumes once more, 65 seconds after the pause
    frame();
    EXPECT_EQ(state.elapsedMs, -60000);
    EXPECT_EQ(state.asteroids[1].x, -6000);
}

TEST_F(GameRulesTest, StartANewGameAfterTheResumeOfItsScreen)
{
    hang(1, 100, 100);
    aim(2, 50, 50);
    state.explosions[3] = {};
    tap(211, 291);
    EXPECT_EQ(frame(), "pause, tick");
    EXPECT_EQ(frame(5000), "tick") << "nothing moves, nothing comes";
    application.setScreen("MAIN_MENU");
    frame(300);
    choose(1, 4); // New game, below Resume
    frame(300);
    choose(1, 3);
    frame(300);
    choose(1, 3);
    EXPECT_EQ(state.mode, GameMode::Survival);
    EXPECT_EQ(state.difficulty, Difficulty::Medium);
    EXPECT_EQ(state.asteroids.count(1), 1u) << "nothing is delivered yet";
    EXPECT_EQ(frame(), "resume, new, tick, spawned, spawned");
    EXPECT_EQ(state.asteroids.size(), 2u);
    EXPECT_TRUE(state.missiles.empty() && state.explosions.empty());
    EXPECT_EQ(frame(16), "tick") << "not paused";
}

TEST_F(GameRulesTest, SpawnOnTheSurvivalSchedule)
{
    constexpr struct {
        std::uint32_t seconds;
        std::size_t count;
        std::uint32_t interval;
    } kSpawns[] = {{5, 2, 3945},   {6, 2, 3934},   {39, 2, 3567},  {40, 3, 3556}, {79, 3, 3123},
                   {120, 5, 2667}, {180, 6, 2000}, {181, 6, 2000}, {280, 9, 2000}};
    for (const auto &[seconds, count, interval] : kSpawns) {
        playUnderEmptySky();
        std::uint32_t due = 5000;
        for (device.advance(seconds * 1000); due < seconds * 1000; due += interval) {
            frame();
            EXPECT_EQ(state.asteroids.size(), count) << "one spawn a step at " << seconds;
            state.asteroids.clear();
        }
        EXPECT_EQ(frame(due - seconds * 1000), "tick") << "due, but not yet late at " << seconds;
        EXPECT_EQ(frame(1).substr(0, 22), "tick, spawned, spawned") << seconds;
    }
}

TEST_F(GameRulesTest, GrowTheWavesOfACampaign)
{
    constexpr struct {
        Difficulty difficulty;
        std::size_t groupSizes[15];
    } kCampaigns[] = {{Difficulty::Easy, {1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7, 8, 8}},
                      {Difficulty::Medium, {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 11, 11, 11, 11, 11}},
                      {Difficulty::Hard, {3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 12, 12, 12, 12, 12}}};
    for (const auto &[difficulty, groupSizes] : kCampaigns) {
        play(GameMode::Campaign, difficulty);
        std::int32_t flightMs = 4000;
        for (const std::size_t groupSize : groupSizes) {
            for (int group = 1; group <= 5; ++group) {
                EXPECT_TRUE(isCurrent("GAME"));
                state.asteroids.clear();
                frame();
                EXPECT_EQ(state.asteroids.size(), groupSize) << state.wave << ' ' << group;
                EXPECT_EQ(state.asteroids.rbegin()->second.flightMs, flightMs);
            }
            flightMs -= 120;
            EXPECT_TRUE(isCurrent(state.wave <= 15 ? "SHOP" : "MESSAGE"));
            application.setScreen("GAME");
            EXPECT_EQ(frame(100), "resume, tick") << "the fifth group waited";
        }
    }
}

} // namespace
} // namespace mygame::tests
