#include "replay/options.h"

#include <iostream>
#include <string_view>

namespace replay
{
namespace
{

constexpr std::string_view kUsage =
    "usage: replay SCRIPT [--data DIR] [--trace FILE] [--snapshots DIR] [--frames FILE] [--pin FILE]\n";

constexpr std::string_view kExplanation =
    "Runs the whole game without window, sound card or clock, by a script that says what the player does.\n"
    "\n"
    "  --data DIR       the folder of the pictures and the sound, in place of the program's own\n"
    "  --trace FILE     write a line of JSON for each frame shown; - is standard output\n"
    "  --snapshots DIR  where the script's snapshots go, in place of the current folder\n"
    "  --frames FILE    write a film, 60 raw pictures a second, 240 x 320 RGB; - is standard output\n"
    "  --pin FILE       write the script again with checks for the pictures now shown\n"
    "  --help           print this\n"
    "  --version        print the version\n"
    "\n"
    "Exit status: 0 the program ran to its end, 2 bad use or an output that cannot be written,\n"
    "3 the clock stood still, 4 a check of the script was not met.\n";

/// Where an option's value goes, null for an unknown option.
std::string *valueOf(Options &options, std::string_view option)
{
    struct Value {
        std::string_view option;
        std::string Options::*value;
    };
    constexpr Value kValues[] = {{"--data", &Options::dataFolder},
                                 {"--trace", &Options::trace},
                                 {"--snapshots", &Options::snapshotFolder},
                                 {"--frames", &Options::frames},
                                 {"--pin", &Options::pin}};
    for (const auto &[known, value] : kValues) {
        if (known == option)
            return &(options.*value);
    }
    return nullptr;
}

/// @return what is wrong, empty when nothing is.
std::string read(int argumentCount, char **arguments, Options &options)
{
    for (int i = 1; i < argumentCount; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--help" || argument == "--version") {
            options.request = argument == "--help" ? Request::Help : Request::Version;
            return "";
        }
        if (!argument.starts_with("-")) {
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
    if (options.trace == kStandardOutput && options.frames == kStandardOutput)
        return "trace and film cannot both go to standard output";
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

std::string helpText() { return std::string(kUsage) + '\n' + std::string(kExplanation); }

} // namespace replay
