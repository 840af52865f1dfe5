/// What recording costs: a recorded game played with and without it, the recording written to a file as in
/// play.
#include <cstdlib>
#include <new>
#include <optional>

#include <benchmark/benchmark.h>

#include "platform/virtual/virtual_device.h"
#include "replay/recording_device.h"
#include "replay/recording_file.h"
#include "replay/script_file.h"
#include "replay/scripted_run.h"
#include "shell/startup.h"

namespace
{

std::size_t allocations = 0;

} // namespace

// Not inlined, or the compiler takes the one for a stranger to the other.
[[gnu::noinline]] void *operator new(std::size_t size)
{
    ++allocations;
    if (void *memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void *memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void *memory, std::size_t) noexcept { std::free(memory); }

namespace
{

constexpr double kMsPerSecond = 1000;

struct Game {
    Game()
    {
        if (const std::string fault = replay::loadScript("recording_bench", MYGAME_SCRIPT, script);
            !fault.empty())
            std::abort();
    }
    replay::Script script;
};

/// Counts only what happens between the game's first frame and its last.
void playGame(benchmark::State &run, bool recorded)
{
    static const Game game;
    double gameMs = 0;
    std::size_t frames = 0;
    std::size_t allocated = 0;
    for (auto _ : run) {
        run.PauseTiming();
        platform::VirtualDevice device;
        device.dataFolder = MYGAME_DATA;
        replay::ScriptedRun scripted(device, game.script, [](std::size_t, std::uint64_t) {});
        scripted.prepare();
        device.refreshRate = 60;
        device.onFrame = [&] {
            ++frames;
            device.sounds.clear();
        };
        std::optional<replay::RecordingFile> file;
        std::optional<replay::RecordingDevice> recording;
        platform::useDevice(device);
        if (recorded) {
            file.emplace("bench-recordings", 1);
            recording.emplace(device, *file, "# a bench\n");
            recording->keep();
            platform::useDevice(*recording);
        }
        mygame::Program program;
        program.begin(nullptr, platform::SW_SHOW);
        run.ResumeTiming();
        const std::size_t before = allocations;
        while (program.runPass()) {
        }
        allocated += allocations - before;
        run.PauseTiming();
        gameMs += static_cast<double>(device.elapsedMs());
        program.end();
        run.ResumeTiming();
    }
    // Of the time that the game lasted.
    run.counters["percent_of_core"] = benchmark::Counter(
        gameMs / kMsPerSecond / 100, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    run.counters["allocations_per_frame"] = static_cast<double>(allocated) / static_cast<double>(frames);
}

BENCHMARK_CAPTURE(playGame, unrecorded, false)
    ->Name("a game without recording")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(playGame, recorded, true)->Name("a game with recording")->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
