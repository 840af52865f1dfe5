#include "tests/game/game_test.h"

#include <algorithm>

#include "game/events.h"
#include "shell/startup.h"

namespace mygame::tests
{
namespace
{

constexpr std::uint32_t kFirstTick = 1000000;

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
        std::string text = kNames[event.type];
        if (event.type == kAsteroidDestroyed)
            text += ' ' + std::to_string(static_cast<const AsteroidDestroyedEvent &>(event).id);
        if (event.type == kMissileDetonated)
            text += ' ' + std::to_string(static_cast<const MissileDetonatedEvent &>(event).id);
        if (const auto *fire = event.type == kFire ? static_cast<const FireEvent *>(&event) : nullptr)
            text += ' ' + std::to_string(fire->x) + ' ' + std::to_string(fire->y);
        return text;
    }
};

platform::VirtualDevice &freshDevice()
{
    static std::uint32_t tick = 0;
    platform::VirtualDevice::reset();
    platform::VirtualDevice &device = platform::VirtualDevice::instance();
    device.switchOn(tick += kFirstTick);
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
    for (std::int32_t i = 0; i < expected.pixelCount(); ++i) {
        if (actual.pixels()[i] != expected.pixels()[i])
            return "(" + std::to_string(i % expected.width()) + ", " + std::to_string(i / expected.width()) +
                   ") is " + std::to_string(actual.pixels()[i]) + ", expected " +
                   std::to_string(expected.pixels()[i]);
    }
    return "";
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

void GameTest::tap(std::uint16_t x, std::uint16_t y)
{
    application.pointerDown(x, y);
    application.pointerUp(x, y);
}

void GameTest::choose(int row, int rows)
{
    tap(120, static_cast<std::uint16_t>(160 - 15 * rows + 30 * row));
    frame(300);
}

void GameTest::hang(std::int32_t id, std::int32_t x, std::int32_t y)
{
    state.asteroids[id] = {{}, id, x, y, x, y, device.tick(), 1000, x, y};
}

void GameTest::aim(std::int32_t id, std::int32_t x, std::int32_t y)
{
    state.missiles[id] = {x, y, x, y, device.tick(), 1000, x, y, nullptr, id};
}

bool GameTest::isCurrent(const char *screen) const
{
    return application.currentScreen() == application.findScreen(screen);
}

} // namespace mygame::tests
