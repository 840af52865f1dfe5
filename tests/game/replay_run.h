/// Runs `replay` in a folder of its own.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

#include <gtest/gtest.h>

namespace mygame::tests
{

struct Outcome {
    int exit = 0;
    std::string output; ///< Standard output.
    std::string errors; ///< Standard error.
};

/// An empty folder, removed with its contents at the end.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string name = testing::TempDir() + "mygame-XXXXXX";
        root = mkdtemp(name.data());
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(root); }

    std::string path(const std::string &name) const { return root / name; }
    bool holds(const std::string &name) const { return std::filesystem::exists(root / name); }

    void write(const std::string &name, const std::string &text) const
    {
        std::ofstream(root / name, std::ios::binary) << text;
    }

    std::string read(const std::string &name) const
    {
        std::ifstream file(root / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Runs `replay` here with these arguments, as a shell reads them.
    Outcome replay(const std::string &arguments) const
    {
        const std::string command =
            "cd '" + root.string() + "' && " REPLAY_COMMAND " " + arguments + " >stdout 2>stderr";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read("stdout"), read("stderr")};
    }

private:
    std::filesystem::path root;
};

/// The frames of a trace.
inline std::vector<nlohmann::json> parseTrace(const std::string &trace)
{
    std::vector<nlohmann::json> frames;
    std::istringstream lines(trace);
    for (std::string line; std::getline(lines, line);)
        frames.push_back(nlohmann::json::parse(line));
    return frames;
}

} // namespace mygame::tests
