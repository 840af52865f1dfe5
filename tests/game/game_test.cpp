#include "tests/game/game_test.h"

#include <algorithm>
#include <utility>

#include "game/events.h"
#include "shell/startup.h"

namespace mygame::tests
{
namespace
{

constexpr std::uint32_t kMsBetweenTests = 1000000;

/// Writes down what is delivered, as the last listener.
class Story final : public EventListener
{
public:
    Story()
    {
        for (std::int32_t type = kNewGame; type <= kNukeFlash; ++type)
            EventBus::instance().subscribe(type, this);
    }

    bool onEvent(const Event &event) override
    {
        text += (text.empty() ? "" : ", ") + describe(event);
        return true;
    }

    std::string text;

private:
    static std::string describe(const Event &event)
    {
        constexpr const char *kNames[] = {"",    "new",       "resume", "pause",    "tick", "spawned",
                                          "",    "destroyed", "fire",   "launched", "",     "detonated",
                                          "hit", "finished",  "ended",  "wave",     "nuke", "flash"};
        const std::string name = kNames[event.type];
        if (event.type == kAsteroidDestroyed)
            return name + ' ' + std::to_string(static_cast<const AsteroidDestroyedEvent &>(event).id);
        if (event.type == kMissileDetonated)
            return name + ' ' + std::to_string(static_cast<const MissileDetonatedEvent &>(event).id);
        return name;
    }
};

platform::VirtualDevice &freshDevice()
{
    platform::VirtualDevice &device = platform::VirtualDevice::instance();
    const std::uint32_t tick = device.tick() + kMsBetweenTests;
    platform::VirtualDevice::reset();
    device.switchOn(tick);
    device.dataFolder = DATA_FOLDER;
    device.hiddenFiles = {u"bg.jpg", u"game_over.jpg", u"menu.jpg", u"shop.png"};
    return device;
}

/// One for the process: what has subscribed to the bus stays subscribed.
Program &program()
{
    static auto *program = new Program;
    return *program;
}

Story &story()
{
    static auto *story = new Story;
    return *story;
}

} // namespace

Surface blankScreen()
{
    Surface surface;
    surface.create(240, 320);
    return surface;
}

Surface pictureOf(Screen &screen)
{
    Surface target = blankScreen();
    screen.render(target);
    return target;
}

std::string difference(const Surface &actual, const Surface &expected)
{
    const Pixel *end = actual.pixels() + actual.pixelCount();
    const auto [pixel, wanted] = std::mismatch(actual.pixels(), end, expected.pixels());
    if (pixel == end)
        return "";
    const auto i = pixel - actual.pixels();
    return "(" + std::to_string(i % 240) + ", " + std::to_string(i / 240) + ") is " + std::to_string(*pixel) +
           ", expected " + std::to_string(*wanted);
}

GameTest::GameTest()
    : device(freshDevice()), application(program().application()),
      state(const_cast<GameState &>(program().state())) // tests set scenes up
{
    state.mode = GameMode::None;
    state.soundOn = 1;
    state.player.health = 0;
    application.setScreen("GAME");
    EventBus::instance().dispatchAll();
    application.setScreen("MAIN_MENU");
    state.asteroids.clear();
    state.missiles.clear();
    state.explosions.clear();
    story().text.clear();
}

void GameTest::play(GameMode mode, Difficulty difficulty)
{
    state.mode = mode;
    state.difficulty = difficulty;
    application.setScreen("GAME");
    EventBus::instance().post<NewGameEvent>();
    frame();
}

std::string GameTest::frame(std::uint32_t afterMs)
{
    device.advance(afterMs);
    application.update(device.tick());
    return std::exchange(story().text, "");
}

} // namespace mygame::tests
