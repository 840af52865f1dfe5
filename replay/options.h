#pragma once

#include <optional>
#include <string>

namespace replay
{

struct Options {
    std::string script;
    std::string dataFolder; ///< Empty: the folder of this executable.
    std::string trace;      ///< Empty: none; "-": standard output.
    std::string snapshotFolder = ".";
};

/// Reads the command line. @return nothing, with a line on standard error, when it is not as `replay` wants
/// it.
std::optional<Options> readOptions(int argumentCount, char **arguments);

} // namespace replay
