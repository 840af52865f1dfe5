#include "program/watching.h"

#include <cstdio>
#include <cstdlib>
#include <optional>

#include "platform/common/data_folder.h"
#include "platform/sdl/viewer_window.h"
#include "program/folders.h"
#include "replay/script_file.h"
#include "replay/watched_game.h"

namespace program
{
namespace
{

constexpr int kExitBadUse = 2;
constexpr int kExitUnmetCheck = 4;

constexpr char kTitle[] = "MyGame";
constexpr char kIconFile[] = "icon-64.png";
constexpr std::int64_t kStepMs = 5000;

/// @return whether whoever watches stays.
bool follow(platform::ViewerWish wish, replay::WatchedGame &game)
{
    switch (wish) {
    case platform::ViewerWish::Leave:
        return false;
    case platform::ViewerWish::TogglePause:
        game.togglePause();
        break;
    case platform::ViewerWish::Forward:
        game.seek(game.positionMs() + kStepMs);
        break;
    case platform::ViewerWish::Back:
        game.seek(game.positionMs() - kStepMs);
        break;
    case platform::ViewerWish::Faster:
        game.faster();
        break;
    case platform::ViewerWish::Slower:
        game.slower();
        break;
    }
    return true;
}

void show(replay::WatchedGame &game, const std::string &dataFolder, platform::ViewerWindow &window)
{
    for (;;) {
        while (const auto wish = window.takeWish()) {
            if (!follow(*wish, game))
                return;
        }
        window.setTitle(titleOf(game));
        window.show(game.picture());
        game.pass(window.wait());
        for (const std::string &sound : game.takeSounds())
            window.playSound(dataFolder + sound);
    }
}

void showFault(const std::string &fault, platform::ViewerWindow &window)
{
    window.setTitle(std::string(kTitle) + " – " + fault);
    while (window.takeWish() != platform::ViewerWish::Leave) {
        window.show({});
        window.wait();
    }
}

} // namespace

int watch(const std::string &file, std::string &next)
{
    const std::string folder = platform::common::dataFolder();
    replay::Script script;
    const std::string fault = replay::loadScript("mygame", file, script);
    if (!fault.empty())
        std::fprintf(stderr, "%s\n", fault.c_str());
    next.clear();
    enterStateFolder();
    platform::ViewerWindow window;
    if (!window.open(kTitle, folder + kIconFile)) {
        std::fputs("mygame: cannot open a window: there is no display\n", stderr);
        return fault.empty() ? EXIT_SUCCESS : kExitBadUse;
    }
    if (!fault.empty()) {
        showFault(fault, window);
        next = window.takeDroppedFile();
        return kExitBadUse;
    }
    replay::WatchedGame game(std::move(script), folder);
    show(game, folder, window);
    next = window.takeDroppedFile();
    if (!game.firstWrongFrame())
        return EXIT_SUCCESS;
    std::fprintf(stderr, "mygame: %s: the pictures are not those recorded, from frame %llu on\n",
                 file.c_str(), static_cast<unsigned long long>(*game.firstWrongFrame()));
    return kExitUnmetCheck;
}

} // namespace program
