#include <vector>

#include "game/events.h"
#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

using ScreensTest = GameTest;

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

TEST_F(ScreensTest, WearThePropulsionDownToNothing)
{
    play(GameMode::TimeAttack);
    state.asteroids.clear();
    application.setScreen("SHOP");
    tap(98, 54);
    state.player.money = 119999;
    for (int purchase = 1; purchase <= 60; ++purchase) {
        tap(15, 301); // buys
        EXPECT_EQ(state.missileTravelTime > 0, purchase < 56) << purchase;
    }
    EXPECT_EQ(state.player.money, 1999) << "one dollar too little for the last";
    application.setScreen("GAME");
    tap(100, 100);
    EXPECT_EQ(frame(), "resume, fire, tick, launched, detonated");
}

} // namespace
} // namespace mygame::tests
