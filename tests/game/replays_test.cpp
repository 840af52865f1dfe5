/// Every script in tests/replays is a test: NAME.txt must show the facts of NAME.facts. `#` starts a comment
/// there, and each other line is a fact:
///
///     at 2900 MEMBER CLAIM   in the first frame that many ms after the first one; `at end`: in the last
///     MEMBER CLAIM           of the whole run: its `screens` in their order, the `log`, and, where there are
///                            any, the `errors` and the `exit` status
///
/// A frame's member is given by its path in the trace, without `state.`; it `is VALUE`, `is not VALUE`, `is
/// as at 2900`, which is its value in that frame, or, as a list, `counts N` elements.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/game/replay_run.h"
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

/// What one replay left behind.
struct Evidence {
    Json run;
    std::vector<Json> frames; ///< With `ms` since the first one, and the state's members beside their own.
};

Evidence evidenceOf(const std::string &name)
{
    std::filesystem::copy(kReplays / (name + ".txt"), ".");
    const Outcome run = runReplay(name + ".txt --data '" DATA_FOLDER "' --trace trace");
    std::vector<Json> frames;
    std::string screens;
    std::istringstream trace(readFile("trace"));
    for (std::string line, last; std::getline(trace, line);) {
        Json &frame = frames.emplace_back(Json::parse(line));
        frame.update(Json(frame["state"]));
        frame["ms"] = frame["tick"].get<std::uint32_t>() - frames[0]["tick"].get<std::uint32_t>();
        const std::string screen = frame["screen"];
        if (screen != last)
            screens += (last.empty() ? "" : " ") + screen;
        last = screen;
    }
    const Json whole = {
        {"screens", screens}, {"log", readFile("log.txt")}, {"errors", run.errors}, {"exit", run.exit}};
    return {whole, frames};
}

const Json &frameAt(const std::string &when, const std::vector<Json> &frames)
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

Json valueOf(const std::string &text)
{
    const Json value = Json::parse(text, nullptr, false);
    return value.is_discarded() ? Json(text) : value;
}

/// @return what is wrong, empty when it is as the line tells.
std::string faultOf(const std::string &line, const Evidence &evidence)
{
    std::smatch fact;
    if (!std::regex_match(line, fact, kFact))
        return "this is no fact";
    const bool ofFrame = fact[kWhen].matched;
    const Json &frame = ofFrame ? frameAt(fact[kWhen], evidence.frames) : evidence.run;
    const Json found = memberOf(frame, fact[kMember]);
    const Json expected = fact[kAsAt].matched
                              ? memberOf(frameAt(fact[kValue], evidence.frames), fact[kMember])
                              : valueOf(fact[kValue]);
    const bool holds = (fact[kVerb] == "counts" ? Json(found.size()) : found) == expected;
    if (holds != fact[kNot].matched)
        return "";
    const std::string place =
        ofFrame ? "frame " + frame["frame"].dump() + ", tick " + frame["tick"].dump() + ": " : "";
    return place + fact.str(kMember) + " is " + found.dump() + ", expected " + fact.str(kNot) +
           expected.dump();
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

class Replays : public DeviceTest, public testing::WithParamInterface<std::string>
{
};

TEST_P(Replays, Show)
{
    const Evidence evidence = evidenceOf(GetParam());
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
