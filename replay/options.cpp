#include "replay/options.h"

#include <iostream>
#include <string_view>

namespace replay
{
namespace
{

constexpr std::string_view kUsage = "usage: replay SCRIPT [--data DIR] [--trace FILE] [--snapshots DIR]\n";

/// Where an option's value goes, null for an unknown option.
std::string *valueOf(Options &options, std::string_view option)
{
    if (option == "--data")
        return &options.dataFolder;
    if (option == "--trace")
        return &options.trace;
    return option == "--snapshots" ? &options.snapshotFolder : nullptr;
}

/// @return what is wrong, empty when nothing is.
std::string read(int argumentCount, char **arguments, Options &options)
{
    for (int i = 1; i < argumentCount; ++i) {
        const std::string_view argument = arguments[i];
        if (!argument.starts_with("--")) {
            if (!options.script.empty())
                return "a second script, '" + std::string(argument) + "'";
            options.script = argument;
            continue;
        }
        std::string *value = valueOf(options, argument);
        if (!value)
            return "unknown option '" + std::string(argument) + "'";
        if (++i == argumentCount || *arguments[i] == '\0')
            return "option '" + std::string(argument) + "' wants a value";
        *value = arguments[i];
    }
    return options.script.empty() ? "no script" : "";
}

} // namespace

std::optional<Options> readOptions(int argumentCount, char **arguments)
{
    Options options;
    const std::string fault = read(argumentCount, arguments, options);
    if (fault.empty())
        return options;
    std::cerr << "replay: " << fault << "; " << kUsage;
    return std::nullopt;
}

} // namespace replay
