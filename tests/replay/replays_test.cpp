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

const std::filesystem::path kReplays = REPLAYS_FOLDER;

enum Part { kWhen = 1, kMember, kVerb, kNot, kAsAt, kValue };
const std::regex kFact("(?:at (\\w+) )?(\\S+) (is|are|counts) (not )?(as at )?(.*?) *(?:#.*)?");
const std::regex kNoFact(" *(?:#.*)?");

/// What one replay left behind: its `frames`, with `ms` since the first one and the state's members beside
/// their own, its `screens`, `log`, `errors` and `exit` status.
Json evidenceOf(const std::string &name)
{
    std::filesystem::copy(kReplays / (name + ".txt"), ".");
    const Outcome run = runReplay(name + ".txt --data \"" DATA_FOLDER "\" --trace trace");
    Json frames = Json::array();
    std::string screens, last;
    std::istringstream trace(readFile("trace"));
    for (std::string line; std::getline(trace, line);) {
        Json frame = Json::parse(line);
        const std::uint32_t tick = frame["tick"],
                            first = frames.empty() ? tick : frames[0]["tick"].get<std::uint32_t>();
        frame.update(Json(frame["state"]));
        frame["ms"] = tick - first;
        if (frame["screen"] != last)
            screens += (last.empty() ? "" : " ") + frame["screen"].get<std::string>();
        last = frame["screen"];
        frames.push_back(std::move(frame));
    }
    return {{"frames", frames},
            {"screens", screens},
            {"log", readFile("log.txt")},
            {"errors", run.errors},
            {"exit", run.exit}};
}

const Json &frameAt(const std::string &when, const Json &frames)
{
    const auto isReached = [&](const Json &frame) { return frame["ms"] >= std::stoul(when); };
    const auto found = when == "end" ? frames.end() - 1 : std::ranges::find_if(frames, isReached);
    return frames.at(static_cast<std::size_t>(found - frames.begin()));
}

Json memberOf(const Json &frame, std::string path)
{
    std::ranges::replace(path, '.', '/');
    return frame.at(Json::json_pointer("/" + path));
}

/// @return what is wrong, empty when it is as the line tells.
std::string faultOf(const std::string &line, const Json &evidence)
{
    std::smatch fact;
    if (!std::regex_match(line, fact, kFact))
        return "this is no fact";
    const Json &frames = evidence["frames"];
    const std::string when = fact[kWhen];
    const Json &frame = when.empty() ? evidence : frameAt(when, frames);
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
    const Json evidence = evidenceOf(GetParam());
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
