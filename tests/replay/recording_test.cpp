/// What a recording of a run says, and that it shows the same frames.
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/virtual/virtual_device.h"
#include "replay/options.h"
#include "replay/playback.h"
#include "replay/recording_device.h"
#include "shell/startup.h"
#include "tests/replay/replay_run.h"

namespace mygame::tests
{
namespace
{

struct Lines : replay::RecordingOutput {
    void write(std::string_view lines) override { text += lines; }
    std::string text;
};

/// What a recording of the run by a script says.
std::string recordingOf(const std::string &text)
{
    replay::Script script;
    EXPECT_FALSE(parseScript(text, script));
    platform::VirtualDevice device;
    device.dataFolder = DATA_FOLDER;
    const replay::Options options;
    replay::Playback playback(device, options, script);
    playback.prepare();
    Lines lines;
    replay::RecordingDevice recording(device, lines, "# a recording\n");
    platform::useDevice(recording);
    bool standsStill = false;
    device.onStandstill = [&standsStill] { standsStill = true; };
    {
        Program program;
        playback.watch(program);
        if (program.begin(nullptr, platform::SW_SHOW)) {
            while (program.runPass() && !standsStill) {
                if (program.isInGame())
                    recording.keep();
            }
            program.end();
        }
    }
    recording.keep();
    recording.finish();
    // A run without end is of no use to whoever plays.
    return standsStill ? "" : lines.text;
}

std::size_t count(std::string_view what, std::string_view text)
{
    std::size_t found = 0;
    for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + 1))
        ++found;
    return found;
}

using Recording = ReplayTest;

TEST_F(Recording, ShowsWhatEveryRecordedGameShows)
{
    int closed = 0;
    for (const auto &game : std::filesystem::directory_iterator(REPLAYS_FOLDER)) {
        if (game.path().extension() != ".txt")
            continue;
        SCOPED_TRACE(game.path());
        const std::string original = readFile(game.path()), recording = recordingOf(original);
        const auto isChecked = [](const std::string &text) {
            return text.find(" check ") != std::string::npos;
        };
        EXPECT_TRUE(recording.empty() || isChecked(recording) == isChecked(original));
        play(recording);
        EXPECT_EQ(run.exit, 0) << run.errors;
        EXPECT_EQ(recording.find(" message 18 "), std::string::npos) << "that is quit";
        if (recording.ends_with(" quit\n")) { // and not by the program itself
            EXPECT_EQ(recordingOf(recording), recording);
            ++closed;
        }
        const std::size_t last = recording.rfind("\nat ");
        const auto seconds = last == std::string::npos ? 0 : std::stoul(recording.substr(last + 4)) / 1000;
        EXPECT_LE(count(" check ", recording), 2 * seconds + 4);
        EXPECT_LE(count("\n", recording) - count(" check ", recording),
                  count("\n", original) - count(" check ", original) + 4)
            << recording;
    }
    EXPECT_GT(closed, 0);
}

TEST_F(Recording, SaysOnceThatAWindowBeganInTheBackground)
{
    platform::MSG message;
    device.switchOn(1000);
    device.leaveForeground();
    while (device.poll(message)) {
    }
    Lines lines;
    replay::RecordingDevice recording(device, lines, "");
    recording.keep();
    for (int i = 0; i < 3; ++i)
        recording.poll(message);
    EXPECT_EQ(lines.text, "clock 1000\nat 0 background\n");
}

} // namespace
} // namespace mygame::tests
