/// Every script in tests/replays is a test: NAME.txt must show the facts of NAME.facts.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/game/facts.h"
#include "tests/game/replay_run.h"

namespace mygame::tests
{
namespace
{

const std::filesystem::path kReplays = REPLAYS_FOLDER;

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
    const auto speaksOf = [&facts](const std::string &subject) {
        return std::ranges::any_of(facts, [&](const auto &fact) { return fact.starts_with(subject); });
    };
    EXPECT_FALSE(facts.empty()) << name << " has no facts";
    if (!speaksOf("exit"))
        facts.emplace_back("exit is 0");
    if (!speaksOf("errors"))
        facts.emplace_back("errors are ");
    return facts;
}

Evidence evidenceOf(const std::string &name)
{
    const TemporaryFolder folder;
    const std::string script = kReplays / (name + ".txt");
    const Run run = folder.replay("'" + script + "' --data '" DATA_FOLDER "' --trace trace");
    return {run.exit, run.errors, folder.read("log.txt"), parseTrace(folder.read("trace"))};
}

class Replays : public testing::TestWithParam<std::string>
{
};

TEST_P(Replays, Show)
{
    const Evidence evidence = evidenceOf(GetParam());
    for (const std::string &fact : factsOf(GetParam())) {
        const std::string fault = checkFact(fact, evidence);
        EXPECT_TRUE(fault.empty()) << GetParam() << ": " << fault << "\n  fact: " << fact;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Replays, testing::ValuesIn(replayNames()), [](const auto &replay) {
    std::string name = replay.param;
    std::ranges::replace(name, '-', '_');
    return name;
});

} // namespace
} // namespace mygame::tests
