/// `check` lines, and how `--pin` writes them.
#include <regex>
#include <string>

#include <gtest/gtest.h>

#include "tests/replay/replay_run.h"

namespace mygame::tests
{
namespace
{

struct Checks : ReplayTest {
    std::string pinned(const std::string &script)
    {
        play(script, "--pin pinned");
        return readFile("pinned");
    }

    /// The check of the last frame.
    std::string lastCheck(const std::string &script)
    {
        const std::string checks = pinned(script);
        return checks.substr(checks.rfind("check "), sizeof "check 01234567" - 1);
    }
};

TEST_F(Checks, AreOfTheNextFrameAndAllBefore)
{
    const std::string first = lastCheck("at 0 quit"), tenth = lastCheck("refresh 50\nat 99 quit");
    play("refresh 50\nat 0 " + first + "\nat 81 " + tenth + "\nat 90 " + tenth + "\nat 500 quit\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.exit, 0);
    play("refresh 50\nat 0 check 00000000\nat 0 " + first + "\nat 0 check 00000001\nat 80 " + tenth +
         "\nat 500 " + tenth + "\nat 500 frame-buffer off\nat 500 quit\nat 900 " + tenth + "\n");
    const std::string kUnmet = ": the pictures are not those recorded, here or before: frame ";
    EXPECT_EQ(run.errors, "script:2" + kUnmet + "1\nscript:4" + kUnmet + "1\nscript:5" + kUnmet +
                              "9\nscript:6" + kUnmet + "51\nscript:9" + kUnmet + "51\n");
    EXPECT_EQ(run.exit, 4);
}

TEST_F(Checks, CountLessThanOtherTroubles)
{
    EXPECT_EQ(play("at 0 check 00000000", "--trace /dev/full").exit, 2);
    EXPECT_EQ(
        play("clock 2147483647\nframe-cost 0\nat 0 frame-buffer off\nat 0 check 00000000\nat 9 quit").exit,
        3);
    EXPECT_EQ(play("display-error 1\nat 0 check 00000000").exit, 4);
}

TEST_F(Checks, ArePinnedToTheFirstFrameOfEachSecondAndTheLast)
{
    const std::string script = "# top\nclock 5\n\n# tap\nat 500 release 120 130 # menu\nat 2000 snapshot a\n"
                               "at 2001 snapshot b\n\n# over\n\nat 2100 quit # end\n# gone";
    const std::string expected =
        "# top\nclock 5\n\n# tap\nat 0 CHECK\nat 500 release 120 130 # menu\nat 1008 CHECK\n"
        "at 2000 snapshot a\nat 2000 CHECK\nat 2001 snapshot b\nat 2100 CHECK\n\n"
        "# over\n\nat 2100 quit # end\n# gone";
    EXPECT_EQ(std::regex_replace(pinned(script), std::regex("check [0-9a-f]{8}"), "CHECK"), expected);
}

TEST_F(Checks, AreMetOnceTheyArePinnedAndStayTheSame)
{
    const char *const kScripts[] = {
        "",
        "# nothing",
        "hide font.png\n# end\n",
        "at 0 quit",
        "at 40 quit\nat 40 background\nat 90 touch 1 1",
        "at 3000 touch 120 130",
        "at 3000 touch 120 130\n# cut",
        "at 700 check 12345678",
        "at 5 check 12345678 # old\n# kept\nat 900 check 12345678\n\nat 2000 quit\nat 9000 check 00000000",
        "clock 4294966000\nrefresh 144\nat 500 release 120 190\nat 5000 quit\n",
        "frame-cost 0\nat 40 frame-cost 700\nat 5000 message 18 0 0\nat 6000 move 1 1\n",
        "at 0 background\nat 3000 foreground\nat 3000 quit\n",
        "at 100 background\nat 5000 check 12345678",
        "display-error 7\nat 100 check 12345678\nat 3000 quit\n",
        "running-copy\nat 100 check 12345678\n"};
    for (const std::string script : kScripts) {
        const std::string once = pinned(script);
        EXPECT_EQ(run.exit, script.find("check") == std::string::npos ? 0 : 4) << script << run.errors;
        EXPECT_EQ(pinned(once), once) << script;
        EXPECT_EQ(run.errors, "") << once;
        EXPECT_EQ(run.exit, 0) << once;
        EXPECT_TRUE(traceOf(once) == traceOf(script)) << script;
    }
    // A script can be pinned in place.
    play(kScripts[8], "--pin script");
    const std::string inPlace = readFile("script");
    EXPECT_EQ(inPlace, pinned(kScripts[8]));
}

} // namespace
} // namespace mygame::tests
