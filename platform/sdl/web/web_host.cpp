#include <emscripten.h>

#include <SDL_hints.h>
#include <SDL_video.h>

#include "platform/sdl/host.h"
#include "platform/sdl/web/canvas_presenter.h"
#include "platform/sdl/web/page.h"

namespace platform
{
namespace
{

// clang-format off
EM_JS(void, showPageNote, (const char *note), { Module.showNote(UTF8ToString(note)); });
// clang-format on

/// The page calls the program at each refresh, so nothing waits.
class PageTime final : public RealTime
{
public:
    Clock::time_point now() override { return page().refresh; }
    void sleepUntil(Clock::time_point) override {}
    bool waits() const override { return false; }
};

class WebHost final : public Host
{
public:
    ~WebHost() override { page().window = nullptr; }

    /// A page cannot see for how long the machine has been running, and no two games should begin alike: the
    /// time of day does as well.
    Tick machineTick() const override
    {
        const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
        return static_cast<Tick>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count());
    }

    RealTime &time() override { return time_; }
    int refreshRate() const override { return page().refreshRate; }

    bool showNote(const std::string &note) override
    {
        showPageNote(note.c_str());
        return true;
    }

    /// SDL only keeps the window's size and the events: the page itself hears what happens to it, and shows
    /// the picture.
    void prepareDisplay() override { SDL_SetHint(SDL_HINT_VIDEODRIVER, "dummy"); }

    void showWindow(SDL_Window *window, bool visible) override
    {
        if (visible)
            SDL_ShowWindow(window);
        else
            SDL_HideWindow(window);
    }

    std::unique_ptr<Presenter> makePresenter(SDL_Window *window) override
    {
        page().window = window;
        return std::make_unique<CanvasPresenter>(window);
    }

private:
    PageTime time_;
};

} // namespace

std::unique_ptr<Host> makeHost() { return std::make_unique<WebHost>(); }

} // namespace platform
