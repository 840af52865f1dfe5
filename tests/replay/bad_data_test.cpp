/// The whole program with bad pictures: all together where they are none, and each by itself where it is an
/// odd one.
#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/replay/replay_run.h"
#include "tests/support/device_test.h"

namespace mygame::tests
{
namespace
{

// One of each way in which a file is found to be no picture: by its start, its size, its end.
constexpr const char *kNoPictures[] = {"bad/empty", "bad/4097-wide.png", "bad/cut-in-the-middle.jpg"};
constexpr const char *kOddPictures[] = {"odd/1x1.png", "odd/4096x1.png", "odd/1x4096.png"};

/// The seventeen pictures; the icons are no business of the game.
std::vector<std::string> pictures()
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(DATA_FOLDER)) {
        const std::string name = entry.path().filename();
        if (!name.starts_with("icon") && !name.ends_with(".wav"))
            names.push_back(name);
    }
    return names;
}

/// Plays through all screens with these files in place of the good ones of the same name, and checks that
/// nothing but the script ends the program. @return the trace.
std::string play(const std::vector<std::string> &replaced, const std::string &by)
{
    std::filesystem::remove_all("data");
    std::filesystem::create_directory("data");
    for (const std::string &name : pictures()) {
        const bool isGood = std::ranges::count(replaced, name) == 0;
        std::filesystem::create_symlink(isGood ? DATA_FOLDER "/" + name : PICTURES_FOLDER "/" + by,
                                        "data/" + name);
    }
    // Its checks are of the good files.
    writeFile("script", std::regex_replace(readFile(REPLAYS_FOLDER "/all-screens.txt"),
                                           std::regex("at \\d+ check .*\n"), ""));
    const Outcome run = runReplay("script --data data --trace trace");
    EXPECT_EQ(run.exit, 0) << by;
    EXPECT_EQ(run.output + run.errors, "") << by;
    EXPECT_TRUE(readFile("log.txt").ends_with("Main loop stopped")) << by;
    return readFile("trace");
}

using BadData = DeviceTest;

TEST_F(BadData, IsNotDrawnAndEndsNothing)
{
    const std::string without = play(pictures(), "missing");
    for (const char *by : kNoPictures)
        EXPECT_TRUE(play(pictures(), by) == without) << by << " was drawn";
    for (const std::string &name : pictures()) {
        for (const char *by : kOddPictures)
            EXPECT_EQ(std::ranges::count(play({name}, by), '\n'), std::ranges::count(without, '\n'))
                << name << by;
    }
}

} // namespace
} // namespace mygame::tests
