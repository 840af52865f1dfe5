#include <string>
#include <vector>

#include "game/events.h"
#include "graphics/image_loading.h"
#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

using Texts = std::vector<std::u16string>;

Surface pictureFile(const char16_t *file)
{
    Surface surface;
    EXPECT_TRUE(surface.load(dataFilePath(file)));
    surface.setColourKey(surface.pixelAt(0, 0));
    return surface;
}

class ScreensTest : public GameTest
{
protected:
    void write(Surface &target, const char16_t *text, std::int32_t x, std::int32_t y,
               TextAlign align = TextAlign::AlignCentre) const
    {
        target.drawText(state.font, text, x, y, align);
    }
};

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
    const Texts once = {u"explosion.wav"};
    EXPECT_EQ(soundsOf(0), once);
    EXPECT_EQ(soundsOf(100), Texts());
    EXPECT_EQ(soundsOf(1), once);
    state.soundOn = 0;
    EXPECT_EQ(soundsOf(500), Texts());
    EXPECT_EQ(state.explosions.size(), 40u);
}

TEST_F(ScreensTest, RemoveAnExplosionInTheFrameAfterItsEnd)
{
    play(GameMode::Survival);
    EventBus::instance().post<MissileDetonatedEvent>(0, 100, 100);
    tap(211, 291);
    for (int ms = 0; ms < 10000; ms += 30)
        frame(30);
    EXPECT_EQ(state.explosions.begin()->second.sprite.currentFrame(), 0) << "it stands still under the menu";
    application.setScreen("GAME");
    state.explosions.clear();
    EventBus::instance().post<MissileDetonatedEvent>(0, 100, 100);
    frame();
    const AnimatedSprite &sprite = state.explosions.begin()->second.sprite;
    int frames = 0;
    for (; !sprite.isFinished(); ++frames)
        EXPECT_EQ(frame(30).find("finished"), std::string::npos);
    EXPECT_EQ(frames, sprite.frameCount());
    EXPECT_EQ(state.explosions.size(), 1u);
    state.player.health = 0;
    EXPECT_EQ(frame(), "tick, ended");
    EXPECT_TRUE(isCurrent("MESSAGE"));
    application.setScreen("GAME");
    EXPECT_EQ(frame().substr(0, 22), "finished, resume, tick") << "the ended game's update went on";
    EXPECT_TRUE(state.explosions.empty());
}

TEST_F(ScreensTest, DrawTheGameFromBackToFront)
{
    constexpr struct {
        GameMode mode;
        std::int32_t elapsedMs;
        const char16_t *clock;
    } kClocks[] = {{GameMode::Campaign, 1000, u""},
                   {GameMode::TimeAttack, 0, u"0:20"},
                   {GameMode::TimeAttack, 12500, u"0:8"},
                   {GameMode::Survival, 59999, u"00:59"},
                   {GameMode::Survival, 3725000, u"02:05"}};
    for (const auto &[mode, elapsedMs, clock] : kClocks) {
        play(mode);
        state.asteroids.clear();
        EventBus::instance().post<MissileDetonatedEvent>(0, 105, 9);
        hang(1, 100, 5);
        aim(2, 230, 5);
        aim(3, 120, 100); // not dressed: not drawn
        EventBus::instance().post<AsteroidSpawnedEvent>(1);
        EventBus::instance().post<MissileLaunchedEvent>(2);
        tap(211, 291);
        frame();
        frame(300);
        state.elapsedMs = elapsedMs;
        Player &player = state.player;
        player.money = 1500;
        player.missileSlots = 12;
        player.health = 40;
        player.x = 5;

        Surface expected = blankScreen();
        pictureFile(u"nuke.png").blitTo(expected, 7, 296);
        pictureFile(u"menu.png").blitTo(expected, 210, 290);
        state.asteroids[1].sprite.drawCentred(expected, 100, 5);
        state.missiles[2].sprite->drawCentred(expected, 230, 5);
        state.explosions.rbegin()->second.sprite.drawCentred(expected, 105, 9);
        player.satellite.blitCentredTo(expected, 5, player.y);
        expected.drawRect(1, 110, 5, 310, kGreen);
        expected.fillRect(1, 230, 5, 310, kGreen);
        write(expected, u"1500$", 240, 0, TextAlign::AlignRight);
        write(expected, u"12", 10, 0, TextAlign::AlignLeft);
        state.missiles[2].sprite->draw(expected, -2, -2);
        write(expected, clock, 120, 0);
        state.menu.render(expected);
        EXPECT_EQ(difference(picture(), expected), "") << elapsedMs;
    }
}

TEST_F(ScreensTest, EndAGameOnTheScreenOfItsOutcome)
{
    constexpr struct {
        GameMode mode;
        std::int32_t health;
        const char16_t *message; ///< Null: the transition to the game-over screen.
    } kEnds[] = {{GameMode::TimeAttack, 1, u"Asteroids destroyed: 7"},
                 {GameMode::TimeAttack, 0, nullptr},
                 {GameMode::Survival, 0, u"You survived for 95 seconds"},
                 {GameMode::Campaign, 1, u"You have saved the Earth"},
                 {GameMode::Campaign, 0, nullptr}};
    for (const auto &[mode, health, message] : kEnds) {
        play(mode);
        state.asteroidsDestroyed = 7;
        state.elapsedMs = 95800;
        state.player.health = health;
        EventBus::instance().post<GameEndedEvent>();
        EventBus::instance().dispatchAll();
        ASSERT_TRUE(isCurrent(message ? "MESSAGE" : "ANIMSCREEN")) << health;
        if (!message)
            continue;
        Surface expected = blankScreen();
        write(expected, message, 120, 160);
        write(expected, u"Click here to continue", 120, 300);
        EXPECT_EQ(difference(picture(), expected), "");
    }
}

TEST_F(ScreensTest, SlideTheGameOverScreenOverTheGame)
{
    for (int time = 1; time <= 2; ++time) {
        play(GameMode::Campaign);
        state.player.health = 0;
        frame();
        Surface expected = pictureOf(*application.findScreen("GAME"));
        EXPECT_EQ(difference(picture(), expected), "");
        frame(100);
        pictureOf(*application.findScreen("GAME_OVER")).blitTo(expected, 0, 220);
        EXPECT_EQ(difference(picture(), expected), "");
        frame(219);
        EXPECT_TRUE(isCurrent("ANIMSCREEN"));
        frame(1);
        EXPECT_TRUE(isCurrent("GAME_OVER"));
    }
}

TEST_F(ScreensTest, OfferToResumeATimeAttackWithTimeLeft)
{
    for (const std::int32_t elapsedMs : {19999, 20000}) {
        state.player.health = 1;
        state.mode = GameMode::TimeAttack;
        state.elapsedMs = elapsedMs;
        application.setScreen("MAIN_MENU");
        frame(300);
        choose(0, 4); // where three rows have none
        EXPECT_EQ(isCurrent("GAME"), elapsedMs < 20000);
    }
}

} // namespace
} // namespace mygame::tests
