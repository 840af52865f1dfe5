/// `soak FRAMES [SEED [RECORDING]]`: plays the game at random on the virtual device for a number of frames
/// and checks after each what must always hold. The same seed plays the same games. When something does not
/// hold, or the program crashes, what happened is left as a recording for `replay`, and else where a file is
/// named for it.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <utility>

#include "fuzz/soak_player.h"
#include "fuzz/soak_watch.h"
#include "replay/recording_device.h"

namespace
{

/// Drives one program: acts and checks once a pass.
class Soak
{
public:
    Soak(platform::VirtualDevice &device, mygame::Program &program, std::uint64_t frames, std::uint32_t seed)
        : device_(device), player_(device, program, seed), watch_(program), framesLeft_(frames)
    {
        device_.onFrame = [this] { countFrame(); };
        device_.onPoll = [this] { poll(); };
    }

    std::string report() const { return watch_.report(); }

    /// What is called when something does not hold, before the process ends.
    void onBroken(std::function<void()> call) { watch_.onBroken = std::move(call); }

private:
    void countFrame()
    {
        ++frames_;
        device_.sounds.clear();
        if (framesLeft_ > 0)
            --framesLeft_;
    }

    /// The program polls once for each message and once more: that is a pass.
    void poll()
    {
        if (pollsLeft_-- > 0)
            return;
        watch_.check(frames_);
        pollsLeft_ = isNextMillisecond() ? player_.act() : 0;
        if (framesLeft_ == 0) {
            device_.post(platform::WM_QUIT, 0, 0);
            ++pollsLeft_;
        }
    }

    /// A recording names times, not passes: of those within one millisecond only the first can be told.
    bool isNextMillisecond()
    {
        const std::uint64_t last = std::exchange(lastPassMs_, device_.elapsedMs());
        return last != lastPassMs_;
    }

    platform::VirtualDevice &device_;
    soak::Player player_;
    soak::Watch watch_;
    std::uint64_t framesLeft_;
    std::uint64_t frames_ = 0;
    int pollsLeft_ = 0;
    std::uint64_t lastPassMs_ = ~0ull;
};

/// Writes to a file at once, for nobody knows which line is the last.
struct RecordingFile final : replay::RecordingOutput {
    explicit RecordingFile(const std::string &path) : file(path) {}

    void write(std::string_view lines) override { file << lines << std::flush; }

    std::ofstream file;
};

} // namespace

int main(int argumentCount, char **arguments)
{
    const unsigned long long frames = argumentCount > 1 ? std::strtoull(arguments[1], nullptr, 10) : 0;
    const unsigned long seed = argumentCount > 2 ? std::strtoul(arguments[2], nullptr, 10) : 1;
    if (frames == 0 || argumentCount > 4) {
        std::fputs("usage: soak FRAMES [SEED [RECORDING]]\n", stderr);
        return 2;
    }
    const std::string path = argumentCount == 4 ? arguments[3] : "soak-" + std::to_string(seed) + ".mygame";
    RecordingFile file(path);
    platform::VirtualDevice device;
    device.dataFolder = MYGAME_DATA;
    // The first seed's not far from where the clock wraps.
    device.switchOn(0u - 600000u * static_cast<platform::Tick>(seed));
    replay::RecordingDevice recording(device, file, "# MyGame recording\n");
    recording.keep();
    platform::useDevice(recording);
    mygame::Program program;
    Soak soak(device, program, frames, static_cast<std::uint32_t>(seed));
    soak.onBroken([&recording] { recording.finish(); });
    std::printf("soak: %llu frames, seed %lu, recorded in %s\n", frames, seed, path.c_str());
    std::fflush(stdout);
    program.run(nullptr, platform::SW_SHOW);
    recording.finish();
    std::printf("soak: %s\n", soak.report().c_str());
    if (!file.file)
        return 2;
    if (argumentCount < 4)
        std::remove(path.c_str());
    return 0;
}
