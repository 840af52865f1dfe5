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
    GameRulesTest() { playUnderEmptySky(); }

    void playUnderEmptySky()
    {
        play(GameMode::Survival, Difficulty::Hard);
        state.asteroids.clear();
    }
};

TEST_F(GameRulesTest, CompareTheSpawnClockAsSigned)
{
    device.switchOn(INT32_MAX - 2000u);
    playUnderEmptySky();
    EXPECT_EQ(frame(), "tick, spawned, spawned") << "what is due beyond the edge is due at once";
    device.switchOn(UINT32_MAX - 2000);
    playUnderEmptySky();
    EXPECT_EQ(frame(5000), "tick") << "only just due";
    EXPECT_EQ(frame(1), "tick, spawned, spawned") << "after the wrap, as after five seconds anywhere";
}

TEST_F(GameRulesTest, CountEveryPairOfADirectHitAndOfABlast)
{
    const struct {
        std::vector<std::int32_t> asteroids, missiles; ///< The x of each.
        const char *story;
        std::int32_t money;
    } kHits[] = {
        {{100}, {110}, "", 0},
        {{100}, {109}, ", detonated, destroyed, destroyed", 200},
        {{100}, {95, 105}, ", detonated, destroyed, detonated, destroyed, destroyed", 300},
        {{100, 109}, {105}, ", detonated, destroyed, detonated, destroyed, destroyed, destroyed", 400}};
    for (const auto &[asteroids, missiles, story, money] : kHits) {
        playUnderEmptySky();
        for (std::int32_t id = 1; const std::int32_t x : asteroids)
            hang(id++, x, 100);
        for (std::int32_t id = 11; const std::int32_t x : missiles)
            aim(id++, x, 100);
        EXPECT_EQ(frame(), std::string("tick") + story);
        EXPECT_EQ(state.player.money, money) << story;
    }
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
        EXPECT_EQ(frame(), "tick, hit, destroyed") << x;
        EXPECT_EQ(state.player.health, 90);
    }
}

TEST_F(GameRulesTest, ShiftTheClocksBackToTheLastPauseWheneverTheyResume)
{
    tap(211, 291);
    EXPECT_EQ(frame(), "pause, tick");
    EXPECT_EQ(frame(30000), "tick") << "nothing comes";
    application.setScreen("GAME");
    EXPECT_EQ(frame(30000), "resume, tick");
    EXPECT_EQ(state.elapsedMs, 0);
    EXPECT_EQ(frame(5000), "tick");
    EXPECT_EQ(frame(1).substr(0, 13), "tick, spawned") << "after five seconds of the game";
    application.setScreen("GAME"); // resumes once more, 65 seconds after the pause
    frame();
    EXPECT_EQ(state.elapsedMs, -60000);
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
        for (std::int32_t wave = 1; const std::size_t groupSize : groupSizes) {
            for (int group = 1; group <= 5; ++group) {
                state.asteroids.clear();
                frame();
                EXPECT_EQ(state.asteroids.size(), groupSize) << wave << ' ' << group;
            }
            EXPECT_EQ(state.asteroids.begin()->second.flightMs, 4120 - wave * 120);
            EXPECT_EQ(application.currentScreen(), application.findScreen(wave < 15 ? "SHOP" : "MESSAGE"));
            application.setScreen("GAME");
            ++wave;
        }
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

TEST_F(GameRulesTest, TakeTheirNumbersFromTheModeAndTheDifficulty)
{
    constexpr Difficulty kDifficulties[] = {Difficulty::None, Difficulty::Easy, Difficulty::Medium,
                                            Difficulty::Hard};
    constexpr struct {
        GameMode mode;
        std::size_t asteroids[4];
        std::int32_t missileSlots[4];
    } kModes[] = {{GameMode::Survival, {0, 2, 2, 2}, {0, 3, 2, 1}},
                  {GameMode::TimeAttack, {0, 3, 7, 10}, {0, 1, 2, 3}}};
    for (const auto &[mode, asteroids, missileSlots] : kModes) {
        for (std::size_t i = 0; i < 4; ++i) {
            play(mode, kDifficulties[i]);
            EXPECT_EQ(state.asteroids.size(), asteroids[i]);
            EXPECT_EQ(state.player.missileSlots, missileSlots[i]);
            EXPECT_EQ(state.groupSize, static_cast<std::int32_t>(i));
        }
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

TEST_F(GameRulesTest, GoOnForAFrameAfterTheEndOfAGame)
{
    EventBus::instance().post<MissileDetonatedEvent>(0, 100, 100);
    frame();
    while (!state.explosions.begin()->second.sprite.isFinished())
        frame(30);
    EventBus::instance().post<GameEndedEvent>();
    EXPECT_EQ(frame(), "ended, tick");
    application.setScreen("GAME");
    EXPECT_EQ(frame(), "finished, resume, tick");
    EXPECT_TRUE(state.explosions.empty());
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
