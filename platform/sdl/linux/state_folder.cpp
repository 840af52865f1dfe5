#include "platform/sdl/linux/state_folder.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>

namespace platform
{
namespace
{

/// Not even root can make a file there.
constexpr char kNowhere[] = "/proc";

constexpr mode_t kAllButOwner = S_IRWXG | S_IRWXO;

/// Where the desktop's convention has it. A relative path does not count there. Empty without a home.
std::filesystem::path wantedFolder()
{
    const auto variable = [](const char *name) {
        const char *value = std::getenv(name);
        const std::filesystem::path path(value ? value : "");
        return path.is_absolute() ? path : std::filesystem::path();
    };
    const std::filesystem::path state = variable("XDG_STATE_HOME"), home = variable("HOME");
    if (!state.empty())
        return state / "mygame";
    return home.empty() ? home : home / ".local/state/mygame";
}

} // namespace

std::string stateFolder()
{
    const std::filesystem::path folder = wantedFolder();
    std::error_code error;
    const mode_t before = umask(kAllButOwner);
    std::filesystem::create_directories(folder, error);
    umask(before);
    return std::filesystem::is_directory(folder, error) ? folder.string() : kNowhere;
}

} // namespace platform
