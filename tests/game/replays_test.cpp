/// Every script in tests/replays is a test: NAME.txt must show the facts of NAME.facts. `#` starts a comment
/// there, and each other line is a fact:
///
///     at 2900 MEMBER ...              in the first frame that many ms after the first one; `at end`: the
///     last always MEMBER ...               in every frame screens are MAIN_MENU GAME      in this order,
///     each as long as it stays frames are 251, sounds are 3    how many were presented, how many started
///     exit is 0                       the exit status; 0, with no errors, when no fact tells it
///     log is "Init\nError5"           the whole log; errors likewise: standard error
///
/// A frame's member is given by its path in the trace (`state.` can be left out), and
///
///     is VALUE, is not VALUE
///     is as at 2900                   has the value of that frame; also `is not as at`
///     is white, is black              as the `crc`: of a picture of one colour
///     counts N                        is a list with so many elements
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/game/replay_run.h"

namespace mygame::tests
{
namespace
{

using Json = nlohmann::json;

const std::filesystem::path kReplays = REPLAYS_FOLDER;

// CRC-32 of 240 * 320 pixels of two bytes 255 or 0 each.
constexpr const char *kWhiteCrc = "90bb2232";
constexpr const char *kBlackCrc = "066e64a1";

/// What one replay left behind.
struct Evidence {
    std::vector<Json> frames;
    Json whole; ///< What facts tell of the run as a whole.
};

Evidence evidenceOf(const std::string &name)
{
    const TemporaryFolder folder;
    std::filesystem::copy(kReplays / (name + ".txt"), folder.path(""));
    const Outcome run = folder.replay(name + ".txt --data '" DATA_FOLDER "' --trace trace");
    std::vector<Json> frames = parseTrace(folder.read("trace"));
    std::string screens;
    std::string last;
    std::size_t sounds = 0;
    for (const Json &frame : frames) {
        sounds += frame["sounds"].size();
        if (frame["screen"] != last)
            screens += (last.empty() ? "" : " ") + frame["screen"].get<std::string>();
        last = frame["screen"];
    }
    const Json whole = {{"exit", run.exit},        {"errors", run.errors}, {"log", folder.read("log.txt")},
                        {"frames", frames.size()}, {"sounds", sounds},     {"screens", screens}};
    return {frames, whole};
}

const Json &frameAt(const std::string &when, const Evidence &evidence)
{
    if (when == "end" && !evidence.frames.empty())
        return evidence.frames.back();
    for (const Json &frame : evidence.frames) {
        const std::uint32_t start = evidence.frames.front()["tick"];
        if (frame["tick"].get<std::uint32_t>() - start >= std::stoul(when))
            return frame;
    }
    throw std::invalid_argument("there is no frame at " + when);
}

Json memberOf(const Json &frame, const std::string &path)
{
    std::istringstream names(path);
    std::string name;
    std::getline(names, name, '.');
    const Json *member = &(frame.contains(name) ? frame : frame.at("state")).at(name);
    while (std::getline(names, name, '.'))
        member = &(member->is_array() ? member->at(std::stoul(name)) : member->at(name));
    return *member;
}

Json valueOf(const std::string &text)
{
    if (text == "white" || text == "black")
        return text == "white" ? kWhiteCrc : kBlackCrc;
    const Json value = Json::parse(text, nullptr, false);
    return value.is_discarded() ? Json(text) : value;
}

/// True when the text began with the prefix, which is gone then.
bool skip(std::string &text, const std::string &prefix)
{
    const bool found = text.starts_with(prefix);
    text.erase(0, found ? prefix.size() : 0);
    return found;
}

std::string firstWord(std::string &text)
{
    const std::string word = text.substr(0, text.find(' '));
    text.erase(0, std::min(word.size() + 1, text.size()));
    return word;
}

/// @return what is wrong, empty when the claim about the frame is true.
std::string check(const Json &frame, std::string claim, const Evidence &evidence)
{
    const std::string path = firstWord(claim);
    const bool counts = skip(claim, "counts ");
    if (!counts && !skip(claim, "is ") && !skip(claim, "are "))
        throw std::invalid_argument("what about " + path + "?");
    const bool negated = skip(claim, "not ");
    const Json found = memberOf(frame, path);
    const Json expected = skip(claim, "as at ") ? memberOf(frameAt(claim, evidence), path) : valueOf(claim);
    if (((counts ? Json(found.size()) : found) == expected) != negated)
        return "";
    const std::string place = frame.contains("tick")
                                  ? "frame " + frame["frame"].dump() + ", tick " + frame["tick"].dump() + ": "
                                  : "";
    return place + path + " is " + found.dump() + ", expected " + (negated ? "not " : "") +
           (counts ? "a count of " : "") + expected.dump();
}

std::string checkFact(std::string fact, const Evidence &evidence)
{
    if (skip(fact, "at ")) {
        const std::string when = firstWord(fact);
        return check(frameAt(when, evidence), fact, evidence);
    }
    if (!skip(fact, "always "))
        return check(evidence.whole, fact, evidence);
    std::string fault;
    for (auto frame = evidence.frames.begin(); fault.empty() && frame != evidence.frames.end(); ++frame)
        fault = check(*frame, fact, evidence);
    return fault;
}

std::vector<std::string> factsOf(const std::string &name)
{
    std::vector<std::string> facts;
    std::ifstream file(kReplays / (name + ".facts"));
    for (std::string line; std::getline(file, line);) {
        line.erase(std::min(line.find('#'), line.size()));
        line.erase(line.find_last_not_of(' ') + 1);
        if (!line.empty())
            facts.push_back(line);
    }
    EXPECT_FALSE(facts.empty()) << name << " has no facts";
    if (std::ranges::none_of(facts, [](const std::string &fact) { return fact.starts_with("exit"); }))
        facts.insert(facts.end(), {"exit is 0", "errors are \"\""});
    return facts;
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

class Replays : public testing::TestWithParam<std::string>
{
};

TEST_P(Replays, Show)
{
    const Evidence evidence = evidenceOf(GetParam());
    for (const std::string &fact : factsOf(GetParam())) {
        SCOPED_TRACE(GetParam() + ": " + fact);
        EXPECT_EQ(checkFact(fact, evidence), "");
    }
}

INSTANTIATE_TEST_SUITE_P(All, Replays, testing::ValuesIn(replayNames()), [](const auto &replay) {
    std::string name = replay.param;
    std::ranges::replace(name, '-', '_');
    return name;
});

} // namespace
} // namespace mygame::tests
