/// The whole program with bad data files: each picture and the sound by itself, and all pictures together.
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

bool isSound(const std::string &name) { return name.ends_with(".wav"); }

/// The seventeen pictures and the sound; the icons are no business of the game.
std::vector<std::string> dataFiles()
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(DATA_FOLDER)) {
        if (!entry.path().filename().string().starts_with("icon"))
            names.push_back(entry.path().filename());
    }
    return names;
}

/// Plays through all screens with these files in place of the good ones of the same name, and checks that
/// nothing but the script ends the program. @return the trace.
std::string play(const std::vector<std::string> &replaced, const std::string &by)
{
    std::filesystem::remove_all("data");
    std::filesystem::create_directory("data");
    for (const std::string &name : dataFiles()) {
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

struct BadData : DeviceTest, testing::WithParamInterface<std::string> {
};

TEST_P(BadData, IsNotDrawnAndEndsNothing)
{
    std::vector<std::string> names = {GetParam()};
    if (GetParam() == "every picture") {
        names = dataFiles();
        std::erase_if(names, isSound);
    }
    const std::string sound = play({}, ""), without = play(names, "missing");
    EXPECT_TRUE(without != sound) << "never seen or heard";
    for (const char *by : kNoPictures) {
        // The device looks for the file of a sound, and plays nothing.
        EXPECT_TRUE(play(names, by) == (isSound(GetParam()) ? sound : without)) << by << " was drawn";
    }
    for (const char *by : kOddPictures) {
        const std::string trace = play(names, by);
        EXPECT_EQ(std::ranges::count(trace, '\n'), std::ranges::count(sound, '\n')) << by;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, BadData, testing::ValuesIn(dataFiles()));
INSTANTIATE_TEST_SUITE_P(All, BadData, testing::Values("every picture"));

} // namespace
} // namespace mygame::tests
