#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace replay
{

/// What the command line asks for.
enum class Request { Run, Help, Version };

/// The name of a file that stands for standard output.
constexpr std::string_view kStandardOutput = "-";

struct Options {
    Request request = Request::Run;
    std::string script;
    std::string dataFolder; ///< Empty: the program's own.
    std::string trace;      ///< Empty: none; may be `kStandardOutput`.
    std::string snapshotFolder = ".";
    std::string frames; ///< Empty: none; may be `kStandardOutput`.
    std::string pin;    ///< Empty: none.
};

/// Reads the command line. @return nothing, with a line on standard error, when it is not as `replay` wants
/// it.
std::optional<Options> readOptions(int argumentCount, char **arguments);

/// What `--help` prints.
std::string helpText();

} // namespace replay
