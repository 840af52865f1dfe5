/// `soak FRAMES [SEED [SCRIPT]]`: plays the game at random on the virtual device for a number of frames and
/// checks after each what must always hold. The same seed plays the same games. What happened is written down
/// as a script for `replay` where a file is named for it.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>

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

    /// Writes all that happens from now on into a script. It must outlive the soak.
    void recordIn(std::ostream &script)
    {
        player_.onAct = [this, &script](const std::string &what) { record(script, what); };
        onEnd_ = [this, &script] { record(script, "quit"); };
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
        pollsLeft_ = mayAct() ? player_.act() : 0;
        if (framesLeft_ == 0) {
            if (onEnd_)
                onEnd_();
            device_.post(platform::WM_QUIT, 0, 0);
            ++pollsLeft_;
        }
    }

    /// A script names times, not passes: of those within one millisecond only the first can be told.
    bool mayAct()
    {
        const std::uint64_t last = std::exchange(lastPassMs_, device_.elapsedMs());
        return !player_.onAct || last != lastPassMs_;
    }

    void record(std::ostream &script, const std::string &what) const
    {
        script << "at " << device_.elapsedMs() << ' ' << what << '\n';
    }

    platform::VirtualDevice &device_;
    soak::Player player_;
    soak::Watch watch_;
    std::uint64_t framesLeft_;
    std::uint64_t frames_ = 0;
    int pollsLeft_ = 0;
    std::uint64_t lastPassMs_ = ~0ull;
    std::function<void()> onEnd_;
};

} // namespace

int main(int argumentCount, char **arguments)
{
    const unsigned long long frames = argumentCount > 1 ? std::strtoull(arguments[1], nullptr, 10) : 0;
    const unsigned long seed = argumentCount > 2 ? std::strtoul(arguments[2], nullptr, 10) : 1;
    if (frames == 0 || argumentCount > 4) {
        std::fputs("usage: soak FRAMES [SEED [SCRIPT]]\n", stderr);
        return 2;
    }
    platform::VirtualDevice device;
    platform::useDevice(device);
    device.dataFolder = MYGAME_DATA;
    // The first seed's not far from where the clock wraps.
    const platform::Tick start = 0u - 600000u * static_cast<platform::Tick>(seed);
    device.switchOn(start);
    mygame::Program program;
    Soak soak(device, program, frames, static_cast<std::uint32_t>(seed));
    std::ofstream script;
    if (argumentCount == 4) {
        script.open(arguments[3]);
        script << "clock " << start << '\n';
        soak.recordIn(script);
    }
    program.run(nullptr, platform::SW_SHOW);
    std::printf("soak: %llu frames, seed %lu: %s\n", frames, seed, soak.report().c_str());
    return argumentCount == 4 && !script.flush() ? 2 : 0;
}
