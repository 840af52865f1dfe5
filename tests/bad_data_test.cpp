/// The whole program with every kind of bad data file: each picture and the sound by itself, and all
/// together.
#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/game/replay_run.h"
#include "tests/support/device_test.h"

namespace mygame::tests
{
namespace
{

struct Damaged {
    std::string name, bytes;
    bool isPicture = false; ///< If not the one that was meant.
};

std::string randomBytes()
{
    std::mt19937 random;
    std::string bytes(5000, '\0');
    std::ranges::generate(bytes, [&random] { return static_cast<char>(random()); });
    return bytes;
}

Damaged ofSize(std::uint32_t width, std::uint32_t height, bool isPicture)
{
    std::vector<Pixel> pixels(width * height);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = i / 8 % 2 == 0 ? kWhite : kMagenta;
    replay::writePicture("picture.png", pixels, width);
    return {std::to_string(width) + " x " + std::to_string(height), readFile("picture.png"), isPicture};
}

std::vector<Damaged> allDamages(const std::string &good)
{
    return {{"empty", ""},
            {"cut after the signature", good.substr(0, 8)},
            {"cut in the middle", good.substr(0, good.size() / 2)},
            {"without its last byte", good.substr(0, good.size() - 1)},
            {"random bytes", randomBytes()},
            {"random bytes after the first 100", good.substr(0, 100) + randomBytes()},
            ofSize(1, 1, true),
            ofSize(4096, 1, true),
            ofSize(1, 4096, true),
            ofSize(4097, 1, false),
            ofSize(1, 4097, false)};
}

bool isSound(const std::string &name) { return name.ends_with(".wav"); }

/// The seventeen pictures and the sound; the icons are no business of the game.
std::vector<std::string> dataFiles()
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(DATA_FOLDER)) {
        if (!entry.path().filename().string().starts_with("icon"))
            names.push_back(entry.path().filename());
    }
    std::ranges::sort(names);
    return names;
}

class BadData : public DeviceTest, public testing::WithParamInterface<std::string>
{
protected:
    BadData()
    {
        std::filesystem::create_directory("data");
        for (const std::string &name : dataFiles())
            std::filesystem::create_symlink(std::string(DATA_FOLDER "/") + name, inData(name));
    }

    static std::string inData(const std::string &name) { return "data/" + name; }

    /// Plays through all screens and checks that nothing but the script ends the program. @return the trace.
    static std::string play()
    {
        const Outcome run = runReplay("'" REPLAYS_FOLDER "/all-screens.txt' --data data --trace trace");
        EXPECT_EQ(run.exit, 0);
        EXPECT_EQ(run.output + run.errors, "");
        EXPECT_TRUE(readFile("log.txt").ends_with("Main loop stopped"));
        return readFile("trace");
    }

    static Damaged replace(const std::string &name, std::size_t damage)
    {
        Damaged damaged = allDamages(readFile(std::string(DATA_FOLDER "/") + name)).at(damage);
        std::filesystem::remove(inData(name));
        writeFile(inData(name), damaged.bytes);
        return damaged;
    }
};

TEST_P(BadData, IsNotDrawnAndEndsNothing)
{
    // One file, or all pictures.
    std::vector<std::string> names = {GetParam()};
    if (GetParam() == "every picture") {
        names = dataFiles();
        std::erase_if(names, isSound);
    }
    const std::string sound = play();
    for (const std::string &name : names)
        std::filesystem::remove(inData(name));
    const std::string without = play();
    EXPECT_TRUE(without != sound) << GetParam() << " is never seen or heard";
    // The device looks for the file of a sound, and plays nothing.
    const std::string &unreadable = isSound(GetParam()) ? sound : without;
    for (std::size_t i = 0; i < allDamages("").size(); ++i) {
        Damaged damage;
        for (const std::string &name : names)
            damage = replace(name, i);
        SCOPED_TRACE(GetParam() + ", " + damage.name);
        const std::string trace = play();
        EXPECT_EQ(std::ranges::count(trace, '\n'), std::ranges::count(sound, '\n'));
        EXPECT_TRUE(damage.isPicture || trace == unreadable) << "it was drawn";
    }
}

std::vector<std::string> testNames()
{
    std::vector<std::string> names = dataFiles();
    names.emplace_back("every picture");
    return names;
}

INSTANTIATE_TEST_SUITE_P(Files, BadData, testing::ValuesIn(testNames()), [](const auto &file) {
    std::string name = file.param;
    std::ranges::replace_if(
        name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return name;
});

} // namespace
} // namespace mygame::tests
