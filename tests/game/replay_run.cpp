#include "tests/game/replay_run.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <sys/wait.h>

#include <gtest/gtest.h>

namespace mygame::tests
{

TemporaryFolder::TemporaryFolder()
{
    std::string name = testing::TempDir() + "mygame-XXXXXX";
    root = mkdtemp(name.data());
}

TemporaryFolder::~TemporaryFolder() { std::filesystem::remove_all(root); }

void TemporaryFolder::write(const std::string &name, const std::string &text) const
{
    std::ofstream(root / name, std::ios::binary) << text;
}

std::string TemporaryFolder::read(const std::string &name) const
{
    std::ifstream file(root / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Run TemporaryFolder::replay(const std::string &arguments) const
{
    const std::string command =
        "cd '" + root.string() + "' && '" REPLAY_PROGRAM "' " + arguments + " >stdout 2>stderr";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read("stdout"), read("stderr")};
}

std::vector<nlohmann::json> parseTrace(const std::string &trace)
{
    std::vector<nlohmann::json> frames;
    std::istringstream lines(trace);
    for (std::string line; std::getline(lines, line);)
        frames.push_back(nlohmann::json::parse(line));
    return frames;
}

} // namespace mygame::tests
