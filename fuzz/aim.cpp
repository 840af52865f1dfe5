/// `aim SCRIPT`: plays a recorded game anew, for a player who hits, and prints it. Where a comment in the
/// script says "aimed from 2200 to 14500", the touches of that time are left out and others made in their
/// place.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "game/game_state.h"
#include "game/physics.h"
#include "platform/virtual/virtual_device.h"
#include "replay/options.h"
#include "replay/playback.h"
#include "replay/script.h"
#include "replay/script_rewriting.h"
#include "shell/startup.h"

namespace
{

/// Part of a script whose touches are made anew, in its milliseconds; the end does not belong to it.
struct Stretch {
    std::uint32_t fromMs, toMs;

    bool holds(std::uint32_t ms) const { return ms >= fromMs && ms < toMs; }
};

std::vector<Stretch> stretchesOf(const std::string &text)
{
    const std::string mark = "imed from ";
    std::vector<Stretch> stretches;
    for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += mark.size()) {
        Stretch stretch{};
        if (std::sscanf(text.c_str() + at + mark.size(), "%u to %u", &stretch.fromMs, &stretch.toMs) == 2)
            stretches.push_back(stretch);
    }
    return stretches;
}

struct Shot {
    std::int32_t x, y;
    std::int32_t flightMs;
};

/// Where an asteroid and a missile launched at a tick meet, if they do above the Earth.
std::optional<Shot> meet(const mygame::Asteroid &asteroid, const mygame::GameState &state,
                         platform::Tick launch)
{
    constexpr std::int32_t kLowestY = 255;
    constexpr std::int32_t kStepMs = 4;
    const auto at = [&](std::int32_t from, std::int32_t to, std::int32_t flightMs) {
        const auto age = static_cast<std::int32_t>(launch - asteroid.spawnTime) + flightMs;
        return from + (to - from) * age / asteroid.flightMs;
    };
    const mygame::Player &player = state.player;
    for (std::int32_t flightMs = 0;; flightMs += kStepMs) {
        const Shot shot = {at(asteroid.startX, asteroid.targetX, flightMs),
                           at(asteroid.startY, asteroid.targetY, flightMs), flightMs};
        if (shot.y > kLowestY)
            return std::nullopt;
        if (mygame::missileFlightMs(shot.x - player.x, shot.y - player.y, state.missileTravelTime) <=
            flightMs)
            return shot;
    }
}

/// Taps for a player who never waits: at the lowest asteroid that can be hit and is not aimed at already.
class Gunner
{
public:
    Gunner(platform::VirtualDevice &device, mygame::Program &program, std::vector<Stretch> stretches)
        : device_(device), program_(program), stretches_(std::move(stretches))
    {
        device.onFrame = [this] { passBegins_ = true; };
        device.onPoll = [this] { poll(); };
    }

    const std::vector<replay::AddedLine> &taps() const { return taps_; }

private:
    bool mayFire() const
    {
        const auto now = static_cast<std::uint32_t>(device_.elapsedMs());
        const mygame::GameState &state = program_.state();
        const auto isNow = [now](const Stretch &stretch) { return stretch.holds(now); };
        return std::ranges::any_of(stretches_, isNow) &&
               program_.currentScreenName() == std::string("GAME") &&
               static_cast<std::int32_t>(state.missiles.size()) < state.player.missileSlots;
    }

    void poll()
    {
        if (!std::exchange(passBegins_, false) || !mayFire())
            return;
        const platform::Tick launch = device_.tick() + device_.frameCostMs;
        std::optional<Shot> best;
        std::int32_t bestId = 0;
        for (const auto &[id, asteroid] : program_.state().asteroids) {
            const auto shot = aimedUntil_[id] > device_.elapsedMs()
                                  ? std::nullopt
                                  : meet(asteroid, program_.state(), launch);
            if (shot && (!best || shot->y > best->y)) {
                best = shot;
                bestId = id;
            }
        }
        if (best)
            fire(*best, bestId);
    }

    void fire(const Shot &shot, std::int32_t asteroidId)
    {
        constexpr std::uint32_t kPatienceMs = 100;
        const auto x = static_cast<std::uint32_t>(std::max(shot.x, 0)),
                   y = static_cast<std::uint32_t>(std::max(shot.y, 0));
        device_.post(platform::WM_LBUTTONDOWN, 0, y << 16 | x);
        taps_.push_back({static_cast<std::uint32_t>(device_.elapsedMs()),
                         "touch " + std::to_string(x) + ' ' + std::to_string(y)});
        aimedUntil_[asteroidId] =
            device_.elapsedMs() + static_cast<std::uint32_t>(shot.flightMs) + kPatienceMs;
    }

    platform::VirtualDevice &device_;
    mygame::Program &program_;
    std::vector<Stretch> stretches_;
    std::vector<replay::AddedLine> taps_;
    std::map<std::int32_t, std::uint64_t> aimedUntil_; ///< Of the asteroids shot at, in ms since the start.
    bool passBegins_ = true;
};

/// @return the script as it was played.
std::string playedAnew(const replay::Script &script)
{
    const std::vector<Stretch> stretches = stretchesOf(script.text);
    const auto isTouchAimed = [&](const replay::TimedAction &timed) {
        const auto *message = std::get_if<replay::Message>(&timed.action);
        return message && message->number == platform::WM_LBUTTONDOWN &&
               std::ranges::any_of(stretches, [&](const Stretch &part) { return part.holds(timed.atMs); });
    };
    replay::Script rest = script;
    std::erase_if(rest.timeline, isTouchAimed);

    platform::VirtualDevice device;
    platform::useDevice(device);
    device.dataFolder = MYGAME_DATA;
    const replay::Options options;
    replay::Playback playback(device, options, rest);
    playback.prepare();
    mygame::Program program;
    Gunner gunner(device, program, stretches);
    program.run(nullptr, platform::SW_SHOW);
    return replay::rewritten(script, isTouchAimed, gunner.taps());
}

} // namespace

int main(int argumentCount, char **arguments)
{
    std::ifstream file(argumentCount == 2 ? arguments[1] : "", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    replay::Script script;
    if (!file.is_open()) {
        std::fputs("usage: aim SCRIPT\n", stderr);
        return 2;
    }
    if (const auto fault = replay::parseScript(text, script)) {
        std::fprintf(stderr, "%s:%zu: %s\n", arguments[1], fault->line, fault->what.c_str());
        return 2;
    }
    const std::string played = playedAnew(script);
    std::fwrite(played.data(), 1, played.size(), stdout);
    return 0;
}
