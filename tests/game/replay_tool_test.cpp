#include <algorithm>

#include <gtest/gtest.h>
#include <png.h>

#include "tests/game/replay_run.h"
#include "tools/replay/picture_file.h"

namespace mygame::tests
{
namespace
{

constexpr const char *kData = " --data '" DATA_FOLDER "'";

class ReplayTool : public testing::Test
{
protected:
    /// Runs a script with a trace, and returns the trace.
    std::string traceOf(const std::string &script)
    {
        folder.write("script", script);
        run = folder.replay("script --trace trace" + (kData + options));
        return folder.read("trace");
    }

    TemporaryFolder folder;
    std::string options;
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
    for (const char *line : {"at 1 quit\r",
                             "\xEF\xBB\xBF# mark",
                             "# \xE4",
                             "Clock 5",
                             "clock 4294967296",
                             "clock +5",
                             "clock 5 6",
                             "clock # 5",
                             "frame-cost 10001",
                             "hide",
                             "at -1 quit",
                             "at 4294967296 quit",
                             "at 1",
                             "at 1 wait",
                             "at 1 touch 65536 0",
                             "at 1 move 1",
                             "at 1 key-up 1 1",
                             "at 1 message 1 2",
                             "at 1 frame-cost 10001",
                             "at 1 frame-buffer",
                             "at 1 frame-buffer no",
                             "at 1 snapshot a.b",
                             "at 1 quit now"})
        faults.emplace_back(1, std::string(line) + "\nat 1 quit\n");
    options = " --snapshots pictures";
    for (const auto &[line, script] : faults) {
        EXPECT_EQ(traceOf(script), "") << script;
        EXPECT_EQ(run.exit, 2) << script;
        EXPECT_TRUE(run.errors.starts_with("script:" + std::to_string(line) + ": ")) << script << run.errors;
    }
    EXPECT_FALSE(folder.holds("trace") || folder.holds("pictures") || folder.holds("log.txt"));
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
    EXPECT_TRUE(folder.holds("A-z_9.png"));
}

TEST_F(ReplayTool, RefusesWhatItCannotReadOrWrite)
{
    folder.write("script", "at 1 quit\n");
    for (const char *arguments :
         {"", "script script", "script --loud", "script --trace", "script --trace ''", "missing", ".",
          "script --data missing", "script --data script", "script --trace missing/trace",
          "script --trace /dev/full", "script --snapshots script"}) {
        const Outcome run = folder.replay(arguments);
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
    EXPECT_EQ(trace, folder.replay("script --trace -" + std::string(kData)).output);
    EXPECT_EQ(parseTrace(trace).size(), 251u);
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
    EXPECT_NE(folder.read("first.png"), folder.read("twice.png"));
    EXPECT_EQ(folder.read("last.png"), folder.read("twice.png"));
    EXPECT_FALSE(folder.holds("never.png"));
}

TEST_F(ReplayTool, WritesPicturesWithTheHighBitsRepeated)
{
    constexpr std::uint16_t kPixels[] = {0xFFFF, 0x0000, 0x8410, 0x0841, 0xF800, 0x001F};
    constexpr std::uint8_t kColours[] = {255, 255, 255, 0,   0, 0, 132, 130, 132,
                                         8,   8,   8,   255, 0, 0, 0,   0,   255};
    ASSERT_TRUE(replay::writePicture(folder.path("a.png"), kPixels, 3));
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_TRUE(png_image_begin_read_from_file(&image, folder.path("a.png").c_str()));
    EXPECT_EQ(image.width, 3u);
    EXPECT_EQ(image.height, 2u);
    EXPECT_EQ(image.format, std::uint32_t{PNG_FORMAT_RGB});
    std::uint8_t colours[sizeof kColours];
    ASSERT_TRUE(png_image_finish_read(&image, nullptr, colours, 0, nullptr));
    EXPECT_TRUE(std::ranges::equal(colours, kColours));
}

} // namespace
} // namespace mygame::tests
