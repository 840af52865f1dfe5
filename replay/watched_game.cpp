#include "replay/watched_game.h"

#include <algorithm>

#include "replay/scripted_run.h"
#include "shell/startup.h"

namespace replay
{
namespace
{

constexpr unsigned kFastest = 6; ///< 16 times, as a power of two, of a quarter.
constexpr std::uint64_t kQuarters = 4;
constexpr std::uint32_t kMsPerSecond = 1000;

std::string minutesAndSeconds(std::uint32_t ms)
{
    const std::uint32_t seconds = ms / kMsPerSecond;
    const std::string rest = std::to_string(seconds % 60);
    return std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

std::string speedText(std::uint32_t quarters)
{
    if (quarters >= kQuarters)
        return std::to_string(quarters / kQuarters);
    return quarters == 1 ? "¼" : "½";
}

} // namespace

/// The program, from its start to where it is watched.
struct WatchedGame::Run {
    Run(const Script &script, Checks::Report reportUnmet) : scripted(device, script, std::move(reportUnmet))
    {
    }

    platform::VirtualDevice device;
    ScriptedRun scripted;
    std::unique_ptr<mygame::Program> program;
    bool goesOn = false;
};

WatchedGame::WatchedGame(Script script, std::string dataFolder)
    : script_(std::move(script)), dataFolder_(std::move(dataFolder))
{
    start();
}

WatchedGame::~WatchedGame() = default;

void WatchedGame::start()
{
    run_.reset(); // Before the next: there is only one program at a time.
    run_ = std::make_unique<Run>(script_, [this](std::size_t, std::uint64_t frame) {
        firstWrongFrame_ = std::min(frame, firstWrongFrame_.value_or(frame));
    });
    platform::VirtualDevice &device = run_->device;
    platform::useDevice(device);
    device.dataFolder = dataFolder_;
    device.onStandstill = [this] { run_->goesOn = false; };
    run_->scripted.prepare();
    run_->scripted.onFrame = [this](const ShownFrame &frame) {
        picture_.assign(frame.picture.begin(), frame.picture.end());
    };
    run_->program = std::make_unique<mygame::Program>();
    run_->goesOn = run_->program->begin(nullptr, platform::SW_SHOW);
}

std::uint32_t WatchedGame::positionMs() const
{
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(positionQuarters_ / kQuarters, lengthMs()));
}

void WatchedGame::pass(std::uint32_t milliseconds)
{
    if (paused_ || positionMs() == lengthMs())
        return;
    positionQuarters_ += std::uint64_t{milliseconds} * speedInQuarters();
    playTo(positionQuarters_ / kQuarters);
}

void WatchedGame::playTo(std::uint64_t ms)
{
    // The program ends at the last line, or when its clock can never move again.
    const bool toTheEnd = ms >= lengthMs();
    while (run_->goesOn && (toTheEnd || run_->device.elapsedMs() < ms))
        run_->goesOn = run_->program->runPass() && run_->goesOn;
    std::vector<std::string> &started = run_->device.sounds;
    sounds_.insert(sounds_.end(), started.begin(), started.end());
    started.clear();
    if (run_->goesOn)
        return;
    positionQuarters_ = lengthMs() * kQuarters;
    run_->scripted.finish();
}

void WatchedGame::faster() { speed_ = std::min(speed_ + 1, kFastest); }

void WatchedGame::slower() { speed_ -= speed_ > 0; }

void WatchedGame::seek(std::int64_t ms)
{
    const auto place = static_cast<std::uint64_t>(std::clamp<std::int64_t>(ms, 0, lengthMs()));
    if (place < positionMs())
        start();
    positionQuarters_ = place * kQuarters;
    playTo(place);
    sounds_.clear();
}

std::string titleOf(const WatchedGame &game)
{
    std::string title = "MyGame – " + minutesAndSeconds(game.positionMs()) + " of " +
                        minutesAndSeconds(game.lengthMs()) + ", " + speedText(game.speedInQuarters()) + " ×";
    if (game.isPaused())
        title += ", paused";
    if (game.firstWrongFrame())
        title += " – The pictures are not those recorded, from frame " +
                 std::to_string(*game.firstWrongFrame()) + " on.";
    return title;
}

} // namespace replay
