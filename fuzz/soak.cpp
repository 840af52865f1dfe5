/// `soak FRAMES [SEED]`: plays the game at random on the virtual device for a number of frames and checks
/// after each what must always hold. The same seed plays the same games.
#include <cstdio>
#include <cstdlib>

#include "fuzz/soak_player.h"
#include "fuzz/soak_watch.h"

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
        pollsLeft_ = player_.act();
        if (framesLeft_ == 0) {
            device_.post(platform::WM_QUIT, 0, 0);
            ++pollsLeft_;
        }
    }

    platform::VirtualDevice &device_;
    soak::Player player_;
    soak::Watch watch_;
    std::uint64_t framesLeft_;
    std::uint64_t frames_ = 0;
    int pollsLeft_ = 0;
};

} // namespace

int main(int argumentCount, char **arguments)
{
    const unsigned long long frames = argumentCount > 1 ? std::strtoull(arguments[1], nullptr, 10) : 0;
    const unsigned long seed = argumentCount > 2 ? std::strtoul(arguments[2], nullptr, 10) : 1;
    if (frames == 0 || argumentCount > 3) {
        std::fputs("usage: soak FRAMES [SEED]\n", stderr);
        return 2;
    }
    platform::VirtualDevice device;
    platform::useDevice(device);
    device.dataFolder = MYGAME_DATA;
    // Not far from where the clock wraps.
    device.switchOn(0u - 600000u);
    mygame::Program program;
    Soak soak(device, program, frames, static_cast<std::uint32_t>(seed));
    program.run(nullptr, platform::SW_SHOW);
    std::printf("soak: %llu frames, seed %lu: %s\n", frames, seed, soak.report().c_str());
    return 0;
}
