/// The whole program with every kind of bad data file: each picture and the sound by itself, and all
/// together.
#include <algorithm>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <png.h>

#include "tests/game/replay_run.h"
#include "tests/support/device_test.h"
#include "tests/support/picture_files.h"

namespace mygame::tests
{
namespace
{

constexpr const char *kEveryPicture = "every picture";
constexpr std::size_t kRandomBytes = 5000;

/// Whether the damaged file is still a picture, if not the one that was meant.
enum class Is { Picture, NoPicture };

struct Damage {
    std::string name;
    Is result;
    std::function<std::string(const std::string &good)> apply;
};

std::string randomBytes()
{
    std::mt19937 random;
    std::string bytes(kRandomBytes, '\0');
    std::ranges::generate(bytes, [&random] { return static_cast<char>(random()); });
    return bytes;
}

/// Stripes of white and magenta.
std::string stripes(std::uint32_t width, std::uint32_t height)
{
    const std::string palette{'\xFF', '\xFF', '\xFF', '\xFF', '\0', '\xFF'};
    return png({PNG_COLOR_TYPE_PALETTE, 8, false, palette}, width, height,
               [](int x, int y) { return std::string(1, static_cast<char>((x + y) / 8 % 2)); });
}

Damage truncated(const std::string &name, const std::function<std::size_t(std::size_t size)> &length)
{
    return {name, Is::NoPicture,
            [length](const std::string &good) { return good.substr(0, length(good.size())); }};
}

Damage ofSize(const std::string &name, std::uint32_t width, std::uint32_t height, Is result = Is::Picture)
{
    return {name, result, [=](const std::string &) { return stripes(width, height); }};
}

std::vector<Damage> allDamages()
{
    return {
        truncated("empty", [](std::size_t) { return 0; }),
        truncated("cut after the signature", [](std::size_t) { return 8; }),
        truncated("cut after a quarter", [](std::size_t size) { return size / 4; }),
        truncated("cut in the middle", [](std::size_t size) { return size / 2; }),
        truncated("without its last byte", [](std::size_t size) { return size - 1; }),
        {"random bytes", Is::NoPicture, [](const std::string &) { return randomBytes(); }},
        {"random bytes after the first 100", Is::NoPicture,
         [](const std::string &good) { return good.substr(0, 100) + randomBytes(); }},
        ofSize("one pixel", 1, 1),
        ofSize("one row", 240, 1),
        ofSize("one column", 1, 320),
        ofSize("the longest row", 4096, 1),
        ofSize("the longest column", 1, 4096),
        ofSize("too long a row", 4097, 1, Is::NoPicture),
        ofSize("too long a column", 1, 4097, Is::NoPicture),
    };
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

/// What a test damages: one file, or all pictures.
std::vector<std::string> victims(const std::string &name)
{
    if (name != kEveryPicture)
        return {name};
    std::vector<std::string> pictures = dataFiles();
    std::erase_if(pictures, isSound);
    return pictures;
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

    static std::string playWithout(const std::vector<std::string> &names)
    {
        for (const std::string &name : names)
            std::filesystem::remove(inData(name));
        return play();
    }

    static std::string playWith(const std::vector<std::string> &names, const Damage &damage)
    {
        for (const std::string &name : names) {
            std::filesystem::remove(inData(name));
            writeFile(inData(name), damage.apply(readFile(std::string(DATA_FOLDER "/") + name)));
        }
        return play();
    }
};

std::size_t frames(const std::string &trace)
{
    return static_cast<std::size_t>(std::ranges::count(trace, '\n'));
}

TEST_P(BadData, IsNotDrawnAndEndsNothing)
{
    const std::vector<std::string> names = victims(GetParam());
    const std::string sound = play();
    const std::string without = playWithout(names);
    EXPECT_TRUE(without != sound) << GetParam() << " is never seen or heard";
    // The device looks for the file of a sound, and plays nothing.
    const std::string &unreadable = isSound(GetParam()) ? sound : without;
    for (const Damage &damage : allDamages()) {
        SCOPED_TRACE(GetParam() + ", " + damage.name);
        const std::string trace = playWith(names, damage);
        EXPECT_EQ(frames(trace), frames(sound));
        EXPECT_TRUE(damage.result == Is::Picture || trace == unreadable) << "it was drawn";
    }
}

std::vector<std::string> testNames()
{
    std::vector<std::string> names = dataFiles();
    names.emplace_back(kEveryPicture);
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
