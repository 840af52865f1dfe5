#include <algorithm>
#include <filesystem>
#include <sstream>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/game/replay_run.h"
#include "tests/support/device_test.h"

namespace mygame::tests
{
namespace
{

using std::filesystem::exists;

constexpr const char *kData = " --data \"" DATA_FOLDER "\"";

struct ReplayTool : DeviceTest {
    /// Runs a script with a trace, and returns the trace.
    std::string traceOf(const std::string &script)
    {
        writeFile("script", script);
        run = runReplay("script --trace trace --snapshots pictures" + std::string(kData));
        return readFile("trace");
    }

    Outcome run;
};

TEST_F(ReplayTool, NamesTheLineOfAFaultBeforeItTouchesAnything)
{
    std::vector<std::pair<int, std::string>> faults = {{1, ""},
                                                       {3, "at 1 quit\nat 2 background\n# the end"},
                                                       {2, "\n# \r\nat 1 quit\n"},
                                                       {2, "clock 5\nclock 5\nat 1 quit\n"},
                                                       {2, "running-copy\nrunning-copy\nat 1 quit\n"},
                                                       {2, "at 1 background\nclock 5\nat 1 quit\n"},
                                                       {2, "at 5 background\nat 4 quit\n"}};
    std::istringstream faultyLines(
        "at 1 quit\r\n\xEF\xBB\xBF# mark\n# \xE4\nClock 5\nclock 4294967296\nclock +5\n"
        "clock 5 6\nclock # 5\nframe-cost 10001\nhide\nat -1 quit\nat 4294967296 quit\n"
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
    traceOf("clock 00004294967295\nframe-cost 10000\nhide no.file\nhide no.file\n\nat 0 touch 65535 65535\n"
            "at 0 release 0 0\nat 0 move 1 1\nat 0 key-down 65535\nat 0 key-up 0\nat 0 background\n"
            "at 0 foreground\nat 0 message 4294967295 4294967295 4294967295\nat 0 frame-cost 0\n"
            "at 0 frame-buffer on\nat 0 snapshot A-z_9\nat 0 quit\nat 4294967295 quit");
    EXPECT_EQ(run.errors, "");
    EXPECT_TRUE(exists("pictures/A-z_9.png"));
}

TEST_F(ReplayTool, RefusesWhatItCannotReadOrWrite)
{
    writeFile("script", "at 1 quit\n");
    for (const char *arguments :
         {"", "script script", "script --loud", "script --trace", "script --trace ''", "missing", ".",
          "script --data missing", "script --data script", "script --trace missing/trace",
          "script --trace /dev/full", "script --snapshots script"}) {
        const Outcome run = runReplay(arguments);
        EXPECT_EQ(run.exit, 2) << arguments;
        EXPECT_TRUE(run.errors.starts_with("replay: ")) << run.errors;
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
    EXPECT_EQ(trace, runReplay("script --trace -" + std::string(kData)).output);
    EXPECT_EQ(std::ranges::count(trace, '\n'), 251);
    std::string first = trace.substr(0, trace.find('\n'));
    first.replace(first.find("crc") + 6, 8, "........");
    EXPECT_EQ(first, R"({"frame":1,"tick":5000000,"screen":"MAIN_MENU","crc":"........","sounds":[],"state":)"
                     R"({"elapsedMs":0,"asteroidsDestroyed":0,"mode":0,"difficulty":0,"wave":0,)"
                     R"("groupsThisWave":0,"asteroidFlightMs":0,"groupSize":0,"missileTravelTime":0,)"
                     R"("soundOn":1,"player":{"money":0,"x":0,"y":0,"health":0,"missileSlots":0,"nukes":0},)"
                     R"("asteroids":[],"missiles":[],"explosions":[]}})");
}

TEST_F(ReplayTool, TakesSnapshotsOfTheNextFrame)
{
    traceOf("at 0 snapshot first\nat 0 snapshot twice\nat 400 snapshot twice\nat 400 snapshot last\n"
            "at 1000 snapshot never\nat 1000 frame-buffer off\nat 1000 quit\n");
    EXPECT_NE(readFile("pictures/first.png"), readFile("pictures/twice.png"));
    EXPECT_EQ(readFile("pictures/last.png"), readFile("pictures/twice.png"));
    EXPECT_FALSE(exists("pictures/never.png"));
}

} // namespace
} // namespace mygame::tests
