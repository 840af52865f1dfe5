/// `mygame`: the program in a window.
#include <cstdio>
#include <string>
#include <string_view>

#include "platform/sdl/host.h"
#include "program/playing.h"
#include "program/watching.h"

namespace
{

constexpr int kExitBadUse = 2;

constexpr char kHelp[] = "usage: mygame [FILE]\n"
                         "Defend the Earth against falling asteroids, or watch the recording in FILE.\n"
                         "\n"
                         "  --help     show this\n"
                         "  --version  show the version\n"
                         "\n"
                         "Tap or click to fire. F11 or Alt+Enter is full screen and back, Escape\n"
                         "twice leaves. In a recording Space pauses, the arrows step 5 s, + and -\n"
                         "change the speed, Escape leaves.\n";

/// A game, or a recording where there is one, and every recording that is dropped on the window. @return the
/// last exit status.
int run(std::string recording)
{
    int status = 0;
    do {
        std::string next;
        status = recording.empty() ? program::play(next) : program::watch(recording, next);
        recording = next;
    } while (!recording.empty());
    return status;
}

} // namespace

int main(int argumentCount, char **arguments)
{
    if (argumentCount == 1)
        return run("");
    platform::makeHost()->reachTerminal();
    const std::string_view argument = arguments[1];
    const bool isOption = argument.starts_with('-');
    if (argumentCount > 2 || (isOption && argument != "--help" && argument != "--version")) {
        std::fprintf(stderr, "mygame: unknown argument '%s'; see mygame --help\n",
                     arguments[argumentCount > 2 ? 2 : 1]);
        return kExitBadUse;
    }
    if (!isOption)
        return run(arguments[1]);
    std::fputs(argument == "--help" ? kHelp : "mygame " MYGAME_VERSION "\n", stdout);
    return 0;
}
