/// Every scene in the table below must look like tests/scenes/NAME.png. One that does not is written into the
/// current folder, as NAME.actual.png. With ACCEPT_SCENES=1 in the environment the pictures in tests/scenes
/// are made anew from what is drawn, to be looked at before they are committed.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <string>
#include <utility>

#include "graphics/image_loading.h"
#include "platform/random.h"
#include "replay/picture_file.h"
#include "tests/game/game_test.h"

namespace mygame::tests
{
namespace
{

struct Scenes;

struct Scene {
    const char *name;
    void (*set)(Scenes &scenes);
};

std::ostream &operator<<(std::ostream &out, const Scene &scene) { return out << scene.name; }

struct Scenes : GameTest, testing::WithParamInterface<Scene> {
    /// The main menu of a game that can be resumed, so many milliseconds after it came.
    void mainMenu(std::uint32_t ms)
    {
        state.mode = GameMode::Survival;
        state.player.health = 1;
        application.setScreen("MAIN_MENU");
        frame(ms);
    }

    /// A game in which things overlap, 210 ms after its start, with these figures to be shown.
    void game(GameMode mode, std::int32_t elapsedMs, std::int32_t health, std::int32_t money,
              std::int32_t slots)
    {
        constexpr std::int32_t kAsteroids[][2] = {{60, 90},  {225, 12},  {4, 14},
                                                  {120, 14}, {230, 284}, {150, 150}};
        play(mode);
        platform::srand(2); // Each of the four looks comes up.
        state.asteroids.clear();
        for (std::int32_t id = 1; const auto &[x, y] : kAsteroids) {
            hang(id, x, y);
            EventBus::instance().post<AsteroidSpawnedEvent>(id++);
        }
        aim(9, 72, 90);
        aim(10, 30, 200); // has no look yet
        EventBus::instance().post<MissileLaunchedEvent>(9);
        for (const auto &[x, y] : {std::pair{98, 100}, {130, 285}, {20, 280}})
            EventBus::instance().post<MissileDetonatedEvent>(0, x, y);
        frame();
        frame(210);
        state.elapsedMs = elapsedMs;
        state.player.health = health;
        state.player.money = money;
        state.player.missileSlots = slots;
    }

    /// The shop's item below a tap.
    void shop(std::uint16_t x, std::uint16_t y)
    {
        state.player.money = 2700;
        application.setScreen("SHOP");
        tap(x, y);
    }

    /// What follows the end of a game, after a while.
    void end(GameMode mode, std::int32_t health, std::uint32_t ms)
    {
        play(mode);
        state.asteroids.clear();
        state.player.health = health;
        state.asteroidsDestroyed = 7;
        state.elapsedMs = 95800;
        EventBus::instance().post<GameEndedEvent>();
        EventBus::instance().dispatchAll();
        frame(ms);
    }

    using GameTest::frame, GameTest::tap;
};

constexpr Scene kScenes[] = {
    {"main_menu_coming", [](Scenes &scenes) { scenes.mainMenu(150); }},
    {"main_menu_nearly_there", [](Scenes &scenes) { scenes.mainMenu(299); }},
    {"main_menu", [](Scenes &scenes) { scenes.mainMenu(300); }},
    {"main_menu_going",
     [](Scenes &scenes) {
         scenes.mainMenu(300);
         scenes.tap(120, 160);
         scenes.frame(200);
     }},
    // The place where it slides wraps.
    {"main_menu_coming_for_ten_hours", [](Scenes &scenes) { scenes.mainMenu(36000000); }},
    {"survival", [](Scenes &scenes) { scenes.game(GameMode::Survival, 59999, 100, 1500, 3); }},
    {"survival_after_an_hour", [](Scenes &scenes) { scenes.game(GameMode::Survival, 3725000, 37, 0, 1); }},
    {"time_attack", [](Scenes &scenes) { scenes.game(GameMode::TimeAttack, 0, 10, 98765, 12); }},
    {"time_attack_paused",
     [](Scenes &scenes) {
         scenes.game(GameMode::TimeAttack, 12500, 0, 100, 2);
         scenes.tap(211, 291);
         scenes.frame(300);
     }},
    {"shop_repair", [](Scenes &scenes) { scenes.shop(60, 40); }},
    {"shop_missile_slot", [](Scenes &scenes) { scenes.shop(140, 40); }},
    {"shop_nuke", [](Scenes &scenes) { scenes.shop(60, 70); }},
    {"shop_propulsion", [](Scenes &scenes) { scenes.shop(140, 70); }},
    {"survival_ended", [](Scenes &scenes) { scenes.end(GameMode::Survival, 0, 0); }},
    {"time_attack_ended", [](Scenes &scenes) { scenes.end(GameMode::TimeAttack, 10, 0); }},
    {"campaign_won", [](Scenes &scenes) { scenes.end(GameMode::Campaign, 1, 0); }},
    {"campaign_lost", [](Scenes &scenes) { scenes.end(GameMode::Campaign, 0, 250); }},
    {"game_over", [](Scenes &scenes) { scenes.end(GameMode::TimeAttack, 0, 320); }},
};

TEST_P(Scenes, Show)
{
    const std::string name = GetParam().name;
    GetParam().set(*this);
    Surface actual;
    actual.create(240, 320);
    application.currentScreen()->render(actual);
    const auto writeTo = [&](const std::filesystem::path &path) {
        replay::writePicture(path, {actual.pixels(), static_cast<std::size_t>(actual.pixelCount())}, 240);
    };
    if (std::getenv("ACCEPT_SCENES") != nullptr)
        writeTo(SCENES_FOLDER "/" + name + ".png");
    device.dataFolder = SCENES_FOLDER;
    Surface expected;
    EXPECT_TRUE(expected.load(dataFilePath(std::u16string(name.begin(), name.end()) + u".png")));
    const std::filesystem::path actualPath = std::filesystem::current_path() / (name + ".actual.png");
    if (expected.width() != 240 || expected.height() != 320 ||
        !std::equal(expected.pixels(), expected.pixels() + expected.pixelCount(), actual.pixels())) {
        writeTo(actualPath);
        ADD_FAILURE() << "what is drawn: " << actualPath;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Scenes, testing::ValuesIn(kScenes),
                         [](const auto &scene) { return std::string(scene.param.name); });

} // namespace
} // namespace mygame::tests
