/// Runs `replay` in a folder of its own.
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace mygame::tests
{

/// What one run of `replay` left behind.
struct Run {
    int exit = 0;
    std::string output; ///< Standard output.
    std::string errors; ///< Standard error.
};

/// An empty folder, removed with its contents at the end.
class TemporaryFolder
{
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    ~TemporaryFolder();

    std::string path(const std::string &name) const { return root / name; }
    bool holds(const std::string &name) const { return std::filesystem::exists(root / name); }
    void write(const std::string &name, const std::string &text) const;
    std::string read(const std::string &name) const;

    /// Runs `replay` here with these arguments, as a shell reads them.
    Run replay(const std::string &arguments) const;

private:
    std::filesystem::path root;
};

/// The frames of a trace.
std::vector<nlohmann::json> parseTrace(const std::string &trace);

} // namespace mygame::tests
