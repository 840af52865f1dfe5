/// Watching a recorded game in the page, which has a bar to move in it.
#include <algorithm>
#include <chrono>
#include <emscripten.h>
#include <optional>

#include "platform/sdl/viewer_window.h"
#include "platform/sdl/web/page.h"
#include "replay/script_file.h"
#include "replay/watched_game.h"

namespace
{

// clang-format off
/// Says what is wrong with a recording.
EM_JS(void, tellFault, (const char *fault), { Module.tellFault(UTF8ToString(fault)); });

/// Says where the game is and how fast it goes, in ms and in quarters of its own pace. `wrongFrame` is the first that was
/// not as recorded, or 0.
EM_JS(void, tellPlace, (unsigned ms, unsigned lengthMs, unsigned quarters, bool paused, double wrongFrame), {
    Module.tellPlace({ ms, lengthMs, quarters, paused: paused !== 0, wrongFrame });
});
// clang-format on

constexpr char kTitle[] = "MyGame";
constexpr char kFolder[] = "/";
/// Where the page puts the recording.
constexpr char kFile[] = "/recording";

/// Most that counts for the game between two refreshes: after a longer time the page was hidden or busy.
constexpr std::uint32_t kLongestPassMs = 100;

/// A long way to another place is gone in pieces, so that the page answers meanwhile: steps of the game's
/// time, and so long of real time for a refresh.
constexpr std::int64_t kSeekStepMs = 250;
constexpr std::chrono::milliseconds kSeekTime{12};

/// Somebody who watches a game.
struct Viewing {
    explicit Viewing(replay::Script script) : game(std::move(script), kFolder) { window.open(kTitle, {}); }

    replay::WatchedGame game;
    platform::ViewerWindow window;
    /// Where to go, until it is there.
    std::optional<std::int64_t> goal;
};

std::optional<Viewing> viewing;

void approachGoal()
{
    using Clock = std::chrono::steady_clock;
    replay::WatchedGame &game = viewing->game;
    const std::int64_t goal = *viewing->goal;
    const Clock::time_point end = Clock::now() + kSeekTime;
    if (goal < game.positionMs())
        game.seek(0);
    do {
        game.seek(std::min(game.positionMs() + kSeekStepMs, goal));
    } while (game.positionMs() < goal && Clock::now() < end);
    if (game.positionMs() >= goal)
        viewing->goal.reset();
}

void playSounds()
{
    for (const std::string &sound : viewing->game.takeSounds())
        viewing->window.playSound(kFolder + sound);
}

void tell()
{
    const replay::WatchedGame &game = viewing->game;
    const std::int64_t ms = viewing->goal.value_or(game.positionMs());
    tellPlace(static_cast<std::uint32_t>(ms), game.lengthMs(), game.speedInQuarters(), game.isPaused(),
              static_cast<double>(game.firstWrongFrame().value_or(0)));
}

bool hasMoreToSee()
{
    const replay::WatchedGame &game = viewing->game;
    return viewing->goal || (!game.isPaused() && game.positionMs() < game.lengthMs());
}

} // namespace

// What the page calls, by these names with an underscore before them.
extern "C" {

/// Begins to watch the recording in the file `/recording`. No program may be running. @return false when the
/// recording has a fault, which is told.
EMSCRIPTEN_KEEPALIVE bool watch()
{
    replay::Script script;
    const std::string fault = replay::loadScript(kTitle, kFile, script);
    if (!fault.empty()) {
        tellFault(fault.c_str());
        return false;
    }
    viewing.emplace(std::move(script));
    tell();
    return true;
}

EMSCRIPTEN_KEEPALIVE void stopWatching() { viewing.reset(); }

/// Does what is to be done for a refresh of the display, given its time in milliseconds. @return whether to
/// call again at the next one: not where the game stands still until something else is called.
EMSCRIPTEN_KEEPALIVE bool watchForRefresh(double time)
{
    platform::page().setRefresh(time);
    while (viewing->window.takeWish()) {
    }
    const std::uint32_t passed = std::min(viewing->window.wait(), kLongestPassMs);
    if (viewing->goal)
        approachGoal();
    else
        viewing->game.pass(passed);
    playSounds();
    viewing->window.show(viewing->game.picture());
    tell();
    return hasMoreToSee();
}

// Each tells at once what is so now: what is asked for next, which may depend on it, can come before a
// refresh.

/// Goes to a place, at the nearest end where there is none.
EMSCRIPTEN_KEEPALIVE void seek(double ms)
{
    viewing->goal = static_cast<std::int64_t>(std::clamp<double>(ms, 0, viewing->game.lengthMs()));
    tell();
}

EMSCRIPTEN_KEEPALIVE void togglePause()
{
    viewing->game.togglePause();
    tell();
}

EMSCRIPTEN_KEEPALIVE void faster()
{
    viewing->game.faster();
    tell();
}

EMSCRIPTEN_KEEPALIVE void slower()
{
    viewing->game.slower();
    tell();
}
}
