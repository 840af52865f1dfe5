/// The program in a page, which calls it at each refresh of the display.
#include <chrono>
#include <emscripten.h>
#include <optional>

#include "platform/sdl/sdl_device.h"
#include "platform/sdl/web/page.h"
#include "shell/startup.h"

namespace
{

/// Of the main loop for one refresh. Two are usual; where the window came to the front two more: one that
/// waits, and one that begins.
constexpr int kMostPasses = 5;

/// A game from its start to its end, on a device of its own.
struct Session {
    Session() { platform::useDevice(device); }

    platform::SdlDevice device;
    /// Empty until the device is in use.
    std::optional<mygame::Program> program;
};

std::optional<Session> session;

/// What the page is to do after a call.
enum class After : int {
    Wait, ///< Nothing until something happens: the program is in the background.
    GoOn, ///< Call again at the next refresh.
    End   ///< The program has ended.
};

After runPasses()
{
    for (int pass = 0; pass < kMostPasses; ++pass) {
        if (!session->program->runPass())
            return After::End;
        if (session->device.inForeground() && session->device.waitsForRefresh())
            break;
    }
    return session->device.inForeground() ? After::GoOn : After::Wait;
}

} // namespace

// What the page calls, by these names with an underscore before them.
extern "C" {

/// Starts the program, in the background. Its files must be there. @return false when it cannot be.
EMSCRIPTEN_KEEPALIVE bool start()
{
    session.emplace();
    session->program.emplace();
    return session->program->begin(nullptr, platform::SW_SHOW);
}

/// Does what is to be done for a refresh of the display, given its time in milliseconds. @return what comes
/// next.
EMSCRIPTEN_KEEPALIVE int runForRefresh(double time)
{
    using Clock = platform::RealTime::Clock;
    using Milliseconds = std::chrono::duration<double, std::milli>;
    platform::page().refresh =
        Clock::time_point(std::chrono::duration_cast<Clock::duration>(Milliseconds(time)));
    const After after = runPasses();
    if (after == After::End) {
        session->program->end();
        session.reset();
    }
    return static_cast<int>(after);
}
}
