/// Every script in tests/replays is a test: NAME.txt must show the facts of NAME.facts. How a fact is written
/// stands in replay/README.md.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/replay/replay_run.h"
#include "tests/support/device_test.h"

namespace mygame::tests
{
namespace
{

using Json = nlohmann::json;

const std::filesystem::path kReplays = REPLAYS_FOLDER, kFirstFolder = std::filesystem::current_path();

enum Part { kWhen = 1, kMember, kVerb, kNot, kAsAt, kValue };
const std::regex kFact("(?:at (\\w+) )?(\\S+) (is|are|counts) (not )?(as at )?(.*?) *(?:#.*)?");
const std::regex kNoFact(" *(?:#.*)?");
const std::regex kUnmet(":(\\d+): the pictures are not those recorded");

/// What one replay left behind.
struct Evidence { // NOLINT(bugprone-exception-escape): what moves JSON says that it throws nothing
    std::vector<std::string> frames; ///< The lines of the trace.
    Json run;                        ///< Its `screens`, `log`, `errors` and `exit` status.
};

/// The value of a member in a line of a trace, which is parsed as a whole only where a fact is about it.
std::string textOf(const std::string &frame, const std::string &member)
{
    const std::size_t value = frame.find('"' + member + "\":") + member.size() + 3;
    return frame.substr(value, frame.find(',', value) - value);
}

Evidence evidenceOf(const std::string &name)
{
    std::filesystem::copy(kReplays / (name + ".txt"), ".");
    const Outcome run = runReplay(name + ".txt --data \"" DATA_FOLDER "\" --trace trace");
    Evidence evidence;
    std::string screens, last;
    std::istringstream trace(readFile("trace"));
    for (std::string line; std::getline(trace, line);) {
        const std::string screen = textOf(line, "screen");
        if (screen != last)
            screens += (last.empty() ? "" : " ") + screen.substr(1, screen.size() - 2);
        last = screen;
        evidence.frames.push_back(std::move(line));
    }
    evidence.run = {
        {"screens", screens}, {"log", readFile("log.txt")}, {"errors", run.errors}, {"exit", run.exit}};
    return evidence;
}

/// The picture of the first check that is not met, in the folder where the test began. Empty when all are.
std::string pictureLeft(const std::string &name, const std::string &errors)
{
    std::smatch unmet;
    if (!std::regex_search(errors, unmet, kUnmet))
        return "";
    std::istringstream lines(readFile(name + ".txt"));
    std::string script;
    int number = 0;
    for (std::string line; std::getline(lines, line); script += line + '\n') {
        if (++number == std::stoi(unmet[1]))
            script += line.substr(0, line.find("check")) + "snapshot actual\n";
    }
    writeFile("script", script);
    runReplay("script --data \"" DATA_FOLDER "\"");
    const std::filesystem::path picture = kFirstFolder / (name + ".actual.png");
    std::filesystem::copy_file("actual.png", picture, std::filesystem::copy_options::overwrite_existing);
    return picture;
}

/// A frame with the state's members beside its own.
Json frameAt(const std::string &when, const std::vector<std::string> &frames)
{
    const auto tickOf = [](const std::string &frame) {
        return static_cast<std::uint32_t>(std::stoul(textOf(frame, "tick")));
    };
    const auto isReached = [&](const std::string &frame) {
        return tickOf(frame) - tickOf(frames[0]) >= std::stoul(when);
    };
    const auto found = when == "end" ? frames.end() - 1 : std::ranges::find_if(frames, isReached);
    Json frame = Json::parse(frames.at(static_cast<std::size_t>(found - frames.begin())));
    frame.update(Json(frame["state"]));
    return frame;
}

Json memberOf(const Json &frame, std::string path)
{
    std::ranges::replace(path, '.', '/');
    return frame.at(Json::json_pointer("/" + path));
}

/// @return what is wrong, empty when it is as the line tells.
std::string faultOf(const std::string &line, const Evidence &evidence)
{
    std::smatch fact;
    if (!std::regex_match(line, fact, kFact))
        return "this is no fact";
    const std::vector<std::string> &frames = evidence.frames;
    const Json frame = fact[kWhen].matched ? frameAt(fact[kWhen], frames) : evidence.run;
    const Json found = memberOf(frame, fact[kMember]);
    Json expected = Json::parse(fact.str(kValue), nullptr, false);
    if (fact[kAsAt].matched)
        expected = memberOf(frameAt(fact[kValue], frames), fact[kMember]);
    else if (expected.is_discarded())
        expected = fact.str(kValue);
    const bool holds = (fact[kVerb] == "counts" ? Json(found.size()) : found) == expected;
    return holds != fact[kNot].matched ? "" : fact.str(kMember) + " is " + found.dump();
}

std::vector<std::string> replayNames()
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(kReplays)) {
        if (entry.path().extension() == ".txt")
            names.push_back(entry.path().stem());
    }
    std::ranges::sort(names);
    return names;
}

struct Replays : DeviceTest, testing::WithParamInterface<std::string> {
};

TEST_P(Replays, Show)
{
    const Evidence evidence = evidenceOf(GetParam());
    const std::string picture = pictureLeft(GetParam(), evidence.run["errors"]);
    EXPECT_EQ(picture, "") << evidence.run["errors"].get<std::string>() << "scripts/recorded.sh "
                           << GetParam() << " shows both";
    const bool isPinned = readFile(GetParam() + ".txt").find(" check ") != std::string::npos;
    EXPECT_EQ(isPinned, !evidence.frames.empty()) << "scripts/pin.sh pins it";
    std::string text = readFile(kReplays / (GetParam() + ".facts"));
    EXPECT_NE(text, "") << GetParam() << " has no facts";
    if (text.find("errors are") == std::string::npos)
        text += "\nerrors are \"\"\nexit is 0";
    std::istringstream facts(text);
    for (std::string fact; std::getline(facts, fact);) {
        if (std::regex_match(fact, kNoFact))
            continue;
        EXPECT_EQ(faultOf(fact, evidence), "") << GetParam() << ": " << fact;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Replays, testing::ValuesIn(replayNames()), [](const auto &replay) {
    std::string name = replay.param;
    std::ranges::replace(name, '-', '_');
    return name;
});

} // namespace
} // namespace mygame::tests
