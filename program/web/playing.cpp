/// The program in a page, which calls it at each refresh of the display, and keeps its recording.
#include <emscripten.h>
#include <optional>

#include "platform/sdl/sdl_device.h"
#include "platform/sdl/web/page.h"
#include "program/recording_comments.h"
#include "replay/recording_device.h"
#include "shell/startup.h"

namespace
{

// clang-format off
/// Adds lines to the recording of this game.
EM_JS(void, recordLines, (const char *lines, std::size_t bytes), { Module.recordLines(UTF8ToString(lines, bytes)); });
// clang-format on

/// Of the main loop for one refresh. Two are usual; where the window came to the front two more: one that
/// waits, and one that begins.
constexpr int kMostPasses = 5;

/// Keeps recordings where the page does.
class PageRecording final : public replay::RecordingOutput
{
public:
    void write(std::string_view lines) override { recordLines(lines.data(), lines.size()); }
};

/// A game from its start to its end, on a device of its own.
struct Session {
    Session() { platform::useDevice(recording); }

    platform::SdlDevice device;
    PageRecording output;
    replay::RecordingDevice recording{device, output, program::recordingComments()};
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
        // A recording in which no game was begun is not worth keeping.
        if (session->program->isInGame())
            session->recording.keep();
        if (session->device.inForeground() && session->device.waitsForRefresh())
            break;
    }
    return session->device.inForeground() ? After::GoOn : After::Wait;
}

void endSession()
{
    session->program->end();
    session->program.reset();
    session->recording.finish();
    session.reset();
}

} // namespace

// What the page calls, by these names with an underscore before them.
extern "C" {

/// Starts the program, in the background. Its files must be there, and nothing may be watched. @return false
/// when it cannot be.
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
    platform::page().setRefresh(time);
    const After after = runPasses();
    if (after == After::End)
        endSession();
    return static_cast<int>(after);
}
}
