/// Every scene in the table below must look like tests/scenes/NAME.png. One that does not is left in the
/// current folder as NAME.actual.png, and as NAME.difference.png, which is white where they differ. With
/// ACCEPT_SCENES=1 in the environment the pictures in tests/scenes are made anew from what is drawn, to be
/// looked at before they are committed.
#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <sstream>
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
    {"main_menu", [](Scenes &scenes) { scenes.mainMenu(300); }},
    {"survival", [](Scenes &scenes) { scenes.game(GameMode::Survival, 59999, 100, 1500, 3); }},
    {"time_attack", [](Scenes &scenes) { scenes.game(GameMode::TimeAttack, 0, 10, 98765, 12); }},
    {"time_attack_paused",
     [](Scenes &scenes) {
         scenes.game(GameMode::TimeAttack, 12500, 0, 100, 2);
         scenes.tap(211, 291);
         scenes.frame(300);
     }},
    {"shop_missile_slot", [](Scenes &scenes) { scenes.shop(140, 40); }},
    {"shop_propulsion", [](Scenes &scenes) { scenes.shop(140, 70); }},
    {"survival_ended", [](Scenes &scenes) { scenes.end(GameMode::Survival, 0, 0); }},
    {"campaign_lost", [](Scenes &scenes) { scenes.end(GameMode::Campaign, 0, 250); }},
    {"game_over", [](Scenes &scenes) { scenes.end(GameMode::TimeAttack, 0, 320); }},
};

void write(const Surface &picture, const std::filesystem::path &path)
{
    replay::writePicture(path, {picture.pixels(), static_cast<std::size_t>(picture.pixelCount())}, 240);
}

Surface blackScreen()
{
    Surface screen;
    screen.create(240, 320);
    return screen;
}

/// What differs, empty for nothing. Leaves pictures of both sides of a difference.
std::string differenceOf(const Surface &actual, const Surface &expected, const std::string &name)
{
    Surface difference = blackScreen();
    std::int32_t count = 0, first = 0;
    for (std::int32_t i = actual.pixelCount() - 1; i >= 0; --i) {
        if (actual.pixels()[i] == expected.pixels()[i])
            continue;
        difference.pixels()[i] = kWhite;
        first = i;
        ++count;
    }
    if (count == 0)
        return "";
    write(actual, name + ".actual.png");
    write(difference, name + ".difference.png");
    std::ostringstream text;
    text << count << " pixels differ, the first at " << first % 240 << ", " << first / 240 << std::hex
         << ": it is 0x" << actual.pixels()[first] << ", expected 0x" << expected.pixels()[first] << "; see "
         << std::filesystem::current_path() / name << ".*.png";
    return text.str();
}

TEST_P(Scenes, Show)
{
    const std::string name = GetParam().name;
    GetParam().set(*this);
    Surface actual = blackScreen(), expected;
    application.currentScreen()->render(actual);
    if (std::getenv("ACCEPT_SCENES") != nullptr)
        write(actual, SCENES_FOLDER "/" + name + ".png");
    device.dataFolder = SCENES_FOLDER;
    EXPECT_TRUE(expected.load(dataFilePath(std::u16string(name.begin(), name.end()) + u".png")));
    ASSERT_EQ(expected.pixelCount(), actual.pixelCount()) << "ACCEPT_SCENES=1 makes it";
    EXPECT_EQ(differenceOf(actual, expected, name), "");
}

INSTANTIATE_TEST_SUITE_P(All, Scenes, testing::ValuesIn(kScenes),
                         [](const auto &scene) { return std::string(scene.param.name); });

} // namespace
} // namespace mygame::tests
