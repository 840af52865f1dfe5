#include "tests/game/game_test.h"

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
        constexpr const char *kNames[] = {"",    "new",       "resume", "pause",    "tick", "spawned",
                                          "",    "destroyed", "fire",   "launched", "",     "detonated",
                                          "hit", "finished",  "ended",  "wave",     "nuke", "flash"};
        text += (text.empty() ? "" : ", ") + std::string(kNames[event.type]);
        return true;
    }

    std::string text;
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

struct World {
    Program program;
    Story story; ///< Subscribes after everything in the program.
};

/// One for the process: what has subscribed to the bus stays subscribed.
World &world()
{
    static auto *world = new World;
    return *world;
}

} // namespace

GameTest::GameTest()
    : device(freshDevice()), application(world().program.application()),
      state(const_cast<GameState &>(world().program.state())) // tests set scenes up
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
    world().story.text.clear();
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
    return std::exchange(world().story.text, "");
}

} // namespace mygame::tests
