/// What a frame, a simulation step and a start cost, beside raw copies of a frame's bytes.
#include <cstddef>
#include <cstring>
#include <vector>

#include <benchmark/benchmark.h>

#include "game/events.h"
#include "game/game_rules.h"
#include "game/game_screen.h"
#include "game/game_state.h"
#include "graphics/image_loading.h"
#include "platform/clock.h"
#include "platform/virtual/virtual_device.h"
#include "shell/display.h"
#include "shell/event_bus.h"
#include "shell/startup.h"

namespace
{

using namespace mygame;

constexpr std::size_t kFrameBytes = 153600;

/// Long enough that nothing reaches its target while the clock of a measurement stands.
constexpr std::int32_t kLongFlightMs = 1000000;

/// In use from here on, with the game's files beside the program.
struct DeviceWithData : platform::VirtualDevice {
    DeviceWithData()
    {
        dataFolder = MYGAME_DATA;
        platform::useDevice(*this);
    }
};

void addAsteroid(GameState &state, std::int32_t id, std::int32_t x, std::int32_t y)
{
    Asteroid &asteroid = state.asteroids[id];
    asteroid.id = id;
    asteroid.startX = asteroid.targetX = asteroid.x = x;
    asteroid.startY = asteroid.targetY = asteroid.y = y;
    asteroid.spawnTime = platform::GetTickCount();
    asteroid.flightMs = kLongFlightMs;
    EventBus::instance().post<AsteroidSpawnedEvent>(id);
}

void addMissile(GameState &state, std::int32_t id, std::int32_t x, std::int32_t y)
{
    Missile &missile = state.missiles[id];
    missile.id = id;
    missile.startX = missile.targetX = missile.x = x;
    missile.startY = missile.targetY = missile.y = y;
    missile.launchTime = platform::GetTickCount();
    missile.flightMs = kLongFlightMs;
    EventBus::instance().post<MissileLaunchedEvent>(id);
}

/// When an explosion is at its largest.
constexpr std::uint32_t kExplosionHeightMs = 240;

/// A busy moment of a survival game: 12 asteroids, 3 missiles, 8 explosions at their height.
struct BusyGame {
    GameState state;
    GameScreen screen;

    BusyGame()
    {
        screen.link(&state);
        state.font.load(dataFilePath(u"font.png"), u" $0123456789:");
        state.font.setColourKey(kMagenta);
        state.mode = GameMode::Survival;
        state.elapsedMs = 95000;
        state.player.money = 12300;
        state.player.health = 70;
        state.player.missileSlots = 3;
        state.player.updateOrbit(platform::GetTickCount());
        for (std::int32_t i = 0; i < 12; ++i)
            addAsteroid(state, i, 15 + i * 19, 30 + i * 37 % 200);
        for (std::int32_t i = 0; i < 3; ++i)
            addMissile(state, 100 + i, 60 + i * 50, 240 - i * 60);
        for (std::int32_t i = 0; i < 8; ++i)
            EventBus::instance().post<AsteroidDestroyedEvent>(-1, 25 + i * 27, 40 + i * 53 % 210);
        EventBus::instance().dispatchAll();
        for (auto &[id, explosion] : state.explosions)
            explosion.sprite.update(platform::GetTickCount() + kExplosionHeightMs);
    }
};

void twoRawCopies(benchmark::State &run)
{
    std::vector<std::byte> first(kFrameBytes);
    std::vector<std::byte> second(kFrameBytes);
    std::vector<std::byte> third(kFrameBytes);
    for (auto _ : run) {
        std::memcpy(second.data(), first.data(), kFrameBytes);
        benchmark::DoNotOptimize(second.data());
        std::memcpy(third.data(), second.data(), kFrameBytes);
        benchmark::DoNotOptimize(third.data());
        benchmark::ClobberMemory();
    }
}

void wholeGameFrame(benchmark::State &run)
{
    DeviceWithData device;
    // Once per process: what is subscribed to the bus stays so.
    static auto &game = *new BusyGame;
    Display display(nullptr);
    for (auto _ : run) {
        display.beginDraw();
        game.screen.render(display.backBuffer());
        display.endDraw();
    }
}

void simulationStep(benchmark::State &run)
{
    DeviceWithData device;
    static auto &state = *new GameState;
    static auto &rules = *new GameRules;
    rules.link(&state);
    state.mode = GameMode::TimeAttack;
    state.difficulty = Difficulty::Easy;
    rules.onEvent(NewGameEvent());
    for (std::int32_t i = 0; i < 1000; ++i)
        addAsteroid(state, i, i % 230, i % 100);
    for (std::int32_t i = 0; i < 100; ++i)
        addMissile(state, 1000 + i, i * 2, 200);
    EventBus::instance().dispatchAll();
    const TickEvent tick;
    for (auto _ : run)
        rules.onEvent(tick);
}

void startToFirstFrame(benchmark::State &run)
{
    for (auto _ : run) {
        DeviceWithData device;
        // Read in the first pass of the main loop, which still shows its frame.
        device.schedule(0, [&device] { device.post(platform::WM_QUIT, 0, 0); });
        startUp(nullptr, nullptr, u"", platform::SW_SHOW);
    }
}

BENCHMARK(twoRawCopies)->Name("two raw copies of 153,600 bytes");
BENCHMARK(wholeGameFrame)->Name("one game frame, rendered and presented");
BENCHMARK(simulationStep)->Name("one step, 1,000 asteroids and 100 missiles");
BENCHMARK(startToFirstFrame)->Name("start-up to the first frame, and the end")->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
