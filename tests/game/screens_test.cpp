#include <cstdlib>
#include <iterator>
#include <set>
#include <vector>

#include "game/events.h"
#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

using ScreensTest = GameTest;

TEST_F(ScreensTest, TurnTouchesOfTheGameIntoEvents)
{
    constexpr struct {
        std::uint16_t x, y;
        const char *story;
    } kTouches[] = {{211, 291, "pause, tick"}, {210, 291, "fire, tick"}, {211, 290, "fire, tick"},
                    {32, 297, "nuke, tick"},   {33, 297, "fire, tick"},  {32, 296, "fire, tick"}};
    for (const auto &[x, y, story] : kTouches) {
        play(GameMode::Campaign);
        state.player.missileSlots = 0;
        application.pointerDown(x, y);
        EXPECT_EQ(frame(), story);
    }
}

TEST_F(ScreensTest, StartOneSoundInMoreThan100Ms)
{
    play(GameMode::Campaign);
    const auto soundsOf = [this](std::uint32_t afterMs) {
        device.sounds.clear();
        for (int i = 0; i < 10; ++i)
            EventBus::instance().post<MissileDetonatedEvent>(0, 100, 100);
        frame(afterMs);
        return device.sounds;
    };
    const std::vector<std::u16string> none, once = {u"explosion.wav"};
    EXPECT_EQ(soundsOf(0), once);
    EXPECT_EQ(soundsOf(100), none);
    EXPECT_EQ(soundsOf(1), once);
    state.soundOn = 0;
    EXPECT_EQ(soundsOf(500), none);
}

TEST_F(ScreensTest, TurnEachKindOfAsteroidAtItsOwnPace)
{
    constexpr std::uint32_t kFrameTimes[] = {200, 220, 240, 180};
    play(GameMode::Campaign);
    std::set<int> kinds;
    for (unsigned seed = 1; kinds.size() < std::size(kFrameTimes); ++seed) {
        std::srand(seed);
        const int kind = std::rand() % 4;
        kinds.insert(kind);
        std::srand(seed);
        hang(1, 100, 100);
        EventBus::instance().post<AsteroidSpawnedEvent>(1);
        frame(7);
        const AnimatedSprite &sprite = state.asteroids[1].sprite;
        frame(kFrameTimes[kind] - 1);
        EXPECT_EQ(sprite.currentFrame(), 0) << kind;
        frame(1);
        EXPECT_EQ(sprite.currentFrame(), 1) << kind;
        frame(kFrameTimes[kind] * static_cast<std::uint32_t>(sprite.frameCount() - 1));
        frame(kFrameTimes[kind]);
        EXPECT_EQ(sprite.currentFrame(), 1) << kind << ", over and over";
    }
}

TEST_F(ScreensTest, RemoveAnExplosionInTheFrameAfterItsEnd)
{
    play(GameMode::TimeAttack);
    state.asteroids.clear();
    EventBus::instance().post<MissileDetonatedEvent>(0, 100, 100);
    frame();
    const AnimatedSprite &sprite = state.explosions.begin()->second.sprite;
    int frames = 0;
    for (; state.explosions.size() == 1 && !sprite.isFinished(); ++frames)
        frame(30);
    EXPECT_EQ(frames, sprite.frameCount());
    EventBus::instance().post<GameEndedEvent>();
    EXPECT_EQ(frame(), "ended, tick");
    application.setScreen("GAME");
    EXPECT_EQ(frame(), "finished, resume, tick") << "the ended game's update went on";
    EXPECT_TRUE(state.explosions.empty());
}

} // namespace
} // namespace mygame::tests
