#include <algorithm>
#include <filesystem>
#include <sstream>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/common/picture.h"
#include "tests/replay/replay_run.h"

namespace mygame::tests
{
namespace
{

using std::filesystem::exists;
using ReplayTool = ReplayTest;

/// The ticks of a trace's frames, counted from the first.
std::vector<std::uint32_t> frameTimes(const std::string &trace)
{
    std::vector<std::uint32_t> ticks;
    std::uint32_t first = 0;
    for (std::size_t at = 0; (at = trace.find("\"tick\":", at)) != std::string::npos; ++at) {
        const auto tick = static_cast<std::uint32_t>(std::stoul(trace.substr(at + 7)));
        first = ticks.empty() ? tick : first;
        ticks.push_back(tick - first);
    }
    return ticks;
}

TEST_F(ReplayTool, NamesTheLineOfAFaultBeforeItTouchesAnything)
{
    std::vector<std::pair<int, std::string>> faults = {{2, "\n# \r\nat 1 quit\n"},
                                                       {2, "clock 5\nclock 5\nat 1 quit\n"},
                                                       {2, "refresh 5\nrefresh 5\nat 1 quit\n"},
                                                       {2, "running-copy\nrunning-copy\nat 1 quit\n"},
                                                       {2, "at 1 background\nclock 5\nat 1 quit\n"},
                                                       {2, "at 5 background\nat 4 quit\n"}};
    std::istringstream faultyLines(
        "at 1 quit\r\n\xEF\xBB\xBF# mark\n# \xE4\nClock 5\nclock 4294967296\nclock +5\n"
        "clock 5 6\nclock # 5\nframe-cost 10001\nrefresh 0\nrefresh 1001\nhide\ncheck 00000000\n"
        "at -1 quit\nat 4294967296 quit\nat 1 refresh 0\nat 1 check\nat 1 check 0123abc\n"
        "at 1 check 0123abcde\nat 1 check 0123ABCD\nat 1 check 0123abcg\n"
        "at 1\nat 1 wait\nat 1 touch 65536 0\nat 1 move 1\nat 1 key-up 1 1\n"
        "at 1 message 1 2\nat 1 frame-cost 10001\nat 1 frame-buffer\n"
        "at 1 frame-buffer no\nat 1 snapshot a.b\nat 1 quit now\n");
    for (std::string line; std::getline(faultyLines, line);)
        faults.emplace_back(1, line + "\nat 1 quit\n");
    for (const auto &[line, script] : faults) {
        EXPECT_EQ(traceOf(script), "") << script;
        EXPECT_EQ(run.exit, 2) << script;
        EXPECT_TRUE(run.errors.starts_with("script:" + std::to_string(line) + ": ")) << script << run.errors;
    }
    EXPECT_FALSE(exists("trace") || exists("pictures") || exists("log.txt"));
}

TEST_F(ReplayTool, ReadsEveryDirectiveAtTheEndsOfItsRange)
{
    traceOf("\t clock\t0 # tick\nclock-less # no\n");
    EXPECT_EQ(run.errors, "script:2: unknown directive 'clock-less'\n");
    traceOf("clock 00004294967295\nframe-cost 10000\nrefresh 01000\nhide no.file\nhide no.file\n\nat 0 touch "
            "65535 65535\n"
            "at 0 release 0 0\nat 0 move 1 1\nat 0 key-down 65535\nat 0 key-up 0\nat 0 background\n"
            "at 0 foreground\nat 0 message 4294967295 4294967295 4294967295\nat 0 frame-cost 0\n"
            "at 0 refresh 1\n"
            "at 0 frame-buffer on\nat 0 snapshot az-AZ_09\nat 0 quit\nat 4294967295 quit");
    EXPECT_EQ(run.errors, "");
    EXPECT_TRUE(exists("pictures/az-AZ_09.png"));
}

TEST_F(ReplayTool, RefusesWhatItCannotReadOrWrite)
{
    writeFile("script", "at 1 quit\n");
    for (const std::string arguments :
         {"", "script script", "script --loud", "script -l", "script --trace", "script --trace '' --pin",
          "missing", ".", "script --data missing", "script --data script", "script --trace missing/trace",
          "script --trace /dev/full", "script --snapshots script", "script --frames missing/film",
          "script --frames /dev/full", "script --pin missing/script", "script --pin /dev/full",
          "script --trace - --frames -"}) {
        const Outcome run = runReplay(arguments);
        EXPECT_EQ(run.exit, 2) << arguments;
        EXPECT_TRUE(run.errors.starts_with("replay: ")) << run.errors;
        EXPECT_NE(run.errors.find(arguments.substr(arguments.rfind(' ') + 1)), std::string::npos)
            << run.errors << " does not name what cannot be had";
        EXPECT_EQ(std::ranges::count(run.errors, '\n'), 1) << run.errors;
    }
}

TEST_F(ReplayTool, WritesTheSameBytesEveryTime)
{
    const std::string script = "clock 5000000\nat 500 release 120 130\nat 1200 release 120 185\n"
                               "at 1900 release 120 185\nat 2600 touch 100 120\nat 4000 quit\n";
    const std::string trace = traceOf(script);
    EXPECT_EQ(run.output + run.errors, "");
    EXPECT_EQ(trace, traceOf(script));
    EXPECT_EQ(trace, runReplay("script --trace - --data \"" DATA_FOLDER "\"").output);
    EXPECT_EQ(std::ranges::count(trace, '\n'), 251);
    std::string first = trace.substr(0, trace.find('\n'));
    first.replace(first.find("crc") + 6, 8, "........");
    EXPECT_EQ(first, R"({"frame":1,"tick":5000000,"screen":"MAIN_MENU","crc":"........","sounds":[],"state":)"
                     R"({"elapsedMs":0,"asteroidsDestroyed":0,"mode":0,"difficulty":0,"wave":0,)"
                     R"("groupsThisWave":0,"asteroidFlightMs":0,"groupSize":0,"missileTravelTime":0,)"
                     R"("soundOn":1,"player":{"money":0,"x":0,"y":0,"health":0,"missileSlots":0,"nukes":0},)"
                     R"("asteroids":[],"missiles":[],"explosions":[]}})");
}

TEST_F(ReplayTool, TellsHelpAndVersion)
{
    const Outcome help = runReplay("--help"), version = runReplay("script --version");
    EXPECT_TRUE(help.output.starts_with("usage: replay SCRIPT ")) << help.output;
    EXPECT_TRUE(version.output.starts_with("replay (MyGame) ")) << version.output;
    EXPECT_EQ(help.errors + version.errors, "");
    EXPECT_EQ(help.exit + version.exit, 0);
}

TEST_F(ReplayTool, PresentsTwoFramesForEachRefreshUntilTheScriptEnds)
{
    using Times = std::vector<std::uint32_t>;
    const std::pair<const char *, Times> kRuns[] = {
        {"refresh 1\nat 2000 quit\n", {0, 999, 1000, 1999, 2000}},
        {"refresh 60\nframe-cost 5\nat 50 quit\n", {0, 15, 16, 32, 33, 49, 50}},
        {"clock 4294967290\nframe-cost 5\nrefresh 144\nat 20 quit\n", {0, 5, 6, 12, 13, 19, 20}},
        {"refresh 600\nat 6 quit\n", {0, 1, 2, 3, 4, 5, 6}},
        {"refresh 1000\nat 3 quit\n", {0, 1, 2, 3}},
        {"at 30 refresh 20\nat 90 frame-cost 3\nat 101 refresh 100\nat 120 quit\n",
         {0, 16, 32, 49, 50, 99, 102, 109, 110, 119, 120}},
        {"refresh 50\nat 0 frame-cost 40\nat 40 quit\n", {0, 40}},
        // Cut short: without a quit at the end.
        {"", {0}},
        {"frame-cost 9 # at 5 quit", {0}},
        {"at 1 quit\nat 30 touch 1 1", {0, 16}},
        {"at 16 touch 1 1\nat 17 touch 1 1", {0, 16, 32}},
    };
    for (const auto &[script, times] : kRuns)
        EXPECT_EQ(frameTimes(traceOf(script)), times) << script;

    // Refreshes count on where the tick count wraps.
    constexpr std::uint64_t kWrap = std::uint64_t{1} << 32;
    device.advance(static_cast<std::uint32_t>(kWrap - 1));
    device.refreshRate = 60;
    for (const std::uint64_t next : {kWrap + 3, kWrap + 4, kWrap + 19, kWrap + 20}) {
        device.endDraw();
        EXPECT_EQ(device.elapsedMs(), next);
    }
}

/// The picture of a PNG file, in the form of a film.
std::string filmPicture(const std::string &path)
{
    platform::common::Picture picture;
    EXPECT_TRUE(platform::common::decodePicture(path, picture)) << path;
    std::string rgb;
    for (std::size_t i = 0; i < picture.rowBytes() * static_cast<std::size_t>(picture.height);
         i += platform::common::Picture::kPixelBytes)
        for (const std::size_t channel : {2u, 1u, 0u})
            rgb += static_cast<char>(picture.pixels[i + channel]);
    return rgb;
}

TEST_F(ReplayTool, FilmsSixtyPicturesASecond)
{
    // The menu slides in: each frame, of 0, 20, 40, 60, 70, 80, 90 and 100 ms after the first, is another
    // picture.
    const std::string script = "at 0 frame-buffer off\nat 40 frame-buffer on\nat 40 frame-cost 20\n"
                               "at 40 snapshot a\nat 60 snapshot b\nat 80 snapshot c\nat 100 snapshot d\n"
                               "at 100 frame-cost 10\nat 120 snapshot e\nat 140 snapshot f\nat 140 quit\n";
    play(script, "--frames film");
    std::string expected;
    for (const char *name : {"a", "a", "b", "c", "d", "e", "f"})
        expected += filmPicture(std::string(name) + ".png");
    EXPECT_TRUE(readFile("film") == expected) << readFile("film").size();
    EXPECT_TRUE(play(script, "--frames -").output == expected);
    play("display-error 1\nat 100 quit\n", "--frames film");
    EXPECT_EQ(readFile("film"), "");
}

} // namespace
} // namespace mygame::tests
