#include "shell/application.h"

#include "platform/clock.h"
#include "platform/frame_buffer.h"
#include "shell/log.h"

namespace mygame
{
namespace
{

constexpr char16_t kWindowClass[] = u"MyClass";
constexpr char16_t kWindowTitle[] = u"MyGame";
constexpr char16_t kTaskBarClass[] = u"HHTaskbar";

constexpr Ms kFrameIntervalMs = 1;
constexpr std::uint32_t kIdleSleepMs = 1;

constexpr std::uint32_t kHideAround =
    platform::SHFS_HIDETASKBAR | platform::SHFS_HIDESIPBUTTON | platform::SHFS_HIDESTARTICON;
constexpr std::uint32_t kShowAround =
    platform::SHFS_SHOWTASKBAR | platform::SHFS_SHOWSIPBUTTON | platform::SHFS_SHOWSTARTICON;

constexpr std::uint16_t lowWord(std::uint32_t value) { return static_cast<std::uint16_t>(value); }
constexpr std::uint16_t highWord(std::uint32_t value) { return static_cast<std::uint16_t>(value >> 16); }

/// Brings another program's window to the front; the marked handle also brings what it owns.
void bringToFront(platform::HWND other)
{
    const auto marked = reinterpret_cast<std::uintptr_t>(other) | 1;
    platform::SetForegroundWindow(reinterpret_cast<platform::HWND>(marked));
}

struct ScreenSize {
    int width;
    int height;
};

ScreenSize screenSize()
{
    const int width = platform::GetSystemMetrics(platform::SM_CXSCREEN);
    const int height = platform::GetSystemMetrics(platform::SM_CYSCREEN);
    return {width, height};
}

platform::HWND taskBar() { return platform::FindWindowW(kTaskBarClass, nullptr); }

void registerWindowClass(platform::HINSTANCE instance)
{
    platform::WNDCLASSW windowClass{};
    windowClass.style = platform::CS_HREDRAW | platform::CS_VREDRAW;
    windowClass.lpfnWndProc = platform::DefWindowProcW;
    windowClass.hInstance = instance;
    windowClass.hbrBackground = platform::GetStockObject(platform::WHITE_BRUSH);
    windowClass.lpszClassName = kWindowClass;
    platform::RegisterClassW(&windowClass);
}

} // namespace

Application::Application() : nextFrameTime_(platform::GetTickCount()) {}

Application::~Application()
{
    // Kept: also when there never was a window; the surroundings come back in any case.
    platform::ShowWindow(taskBar(), platform::SW_SHOW);
    platform::SetFullScreen(window_, kShowAround);
    closeLog();
    display_.reset();
    screens_.clear();
}

bool Application::init(platform::HINSTANCE instance, int showCommand)
{
    logText("Init");
    if (!createWindow(instance, showCommand)) {
        logText("Init Failed");
        return false;
    }
    display_ = std::make_unique<Display>(window_);
    platform::GXOpenInput();
    // Kept: as a screen the application is activated, too, which does nothing and succeeds.
    return activate(nullptr);
}

bool Application::createWindow(platform::HINSTANCE instance, int showCommand)
{
    if (platform::HWND other = platform::FindWindowW(kWindowClass, kWindowTitle)) {
        bringToFront(other);
        return false;
    }
    registerWindowClass(instance);
    const ScreenSize size = screenSize();
    platform::HWND created =
        platform::CreateWindowExW(0, kWindowClass, kWindowTitle, platform::WS_VISIBLE, 0, 0, size.width,
                                  size.height, nullptr, nullptr, instance, nullptr);
    if (!created)
        return false;
    hideSurroundings(created);
    platform::ShowWindow(created, showCommand);
    // Read again: hiding the task bar may have changed the screen's size.
    const ScreenSize shown = screenSize();
    platform::MoveWindow(created, 0, 0, shown.width, shown.height, 1);
    platform::UpdateWindow(created);
    window_ = created;
    return true;
}

void Application::hideSurroundings(platform::HWND created) const
{
    platform::SetFullScreen(created, kHideAround);
    platform::ShowWindow(taskBar(), platform::SW_HIDE);
}

void Application::run()
{
    beginLoop();
    while (runPass()) {
    }
    endLoop();
}

void Application::beginLoop() { stopRequested_ = false; }

void Application::endLoop()
{
    deactivate();
    logText("Main loop stopped");
    flushLog();
}

void Application::requestStop() { stopRequested_ = true; }

bool Application::runPass()
{
    handleMessages();
    const Tick now = platform::GetTickCount();
    if (asDue(now) >= asDue(nextFrameTime_)) {
        // Kept: also after a stop was requested in this pass.
        if (platform::GetForegroundWindow() == window_)
            runFrame();
        // From before the frame: one that took longer is followed at once by the next, and none is made up
        // for.
        nextFrameTime_ = tickAfter(now, kFrameIntervalMs);
    } else {
        platform::Sleep(kIdleSleepMs);
    }
    return !stopRequested_;
}

void Application::runFrame()
{
    if (display_->beginDraw()) {
        render(display_->backBuffer());
        display_->endDraw();
    }
    // Kept: also when nothing could be drawn, and with the clock read anew after the frame was shown.
    update(platform::GetTickCount());
}

void Application::handleMessages()
{
    platform::MSG message;
    while (platform::PeekMessageW(&message, nullptr, 0, 0, platform::PM_REMOVE)) {
        handleMessage(message);
        platform::TranslateMessage(&message);
        platform::DispatchMessageW(&message);
    }
}

void Application::handleMessage(const platform::MSG &message)
{
    const auto place = static_cast<std::uint32_t>(message.lParam);
    switch (message.message) {
    case platform::WM_ACTIVATE:
        if (lowWord(message.wParam) == 0)
            platform::GXSuspend();
        else
            platform::GXResume();
        break;
    case platform::WM_SETFOCUS:
        platform::GXResume();
        break;
    case platform::WM_KILLFOCUS:
        platform::GXSuspend();
        break;
    case platform::WM_QUERYENDSESSION:
    case platform::WM_QUIT:
        requestStop();
        break;
    case platform::WM_KEYDOWN:
        keyDown(lowWord(message.wParam));
        break;
    case platform::WM_KEYUP:
        keyUp(lowWord(message.wParam));
        break;
    case platform::WM_MOUSEMOVE:
        pointerMove(lowWord(place), highWord(place));
        break;
    case platform::WM_LBUTTONDOWN:
        pointerDown(lowWord(place), highWord(place));
        break;
    case platform::WM_LBUTTONUP:
        pointerUp(lowWord(place), highWord(place));
        break;
    default:
        break;
    }
}

void Application::addScreen(const std::string &name, Screen *screen) { screens_[name] = screen; }

void Application::setScreen(const std::string &name)
{
    if (Screen *screen = findScreen(name))
        setCurrentScreen(screen);
}

void Application::setCurrentScreen(Screen *screen)
{
    // Kept: a screen that is current already is deactivated and activated all the same.
    if (currentScreen_)
        currentScreen_->deactivate();
    currentScreen_ = screen;
    currentScreen_->activate(this);
}

Screen *Application::findScreen(const std::string &name) const
{
    const auto found = screens_.find(name);
    return found == screens_.end() ? nullptr : found->second;
}

void Application::render(Surface &target)
{
    if (currentScreen_)
        currentScreen_->render(target);
}

void Application::update(Tick now)
{
    if (currentScreen_)
        currentScreen_->update(now);
}

void Application::keyDown(std::uint16_t key)
{
    if (currentScreen_)
        currentScreen_->keyDown(key);
}

void Application::keyUp(std::uint16_t key)
{
    if (currentScreen_)
        currentScreen_->keyUp(key);
}

void Application::pointerMove(std::uint16_t x, std::uint16_t y)
{
    if (currentScreen_)
        currentScreen_->pointerMove(x, y);
}

void Application::pointerUp(std::uint16_t x, std::uint16_t y)
{
    if (currentScreen_)
        currentScreen_->pointerUp(x, y);
}

void Application::pointerDown(std::uint16_t x, std::uint16_t y)
{
    if (currentScreen_)
        currentScreen_->pointerDown(x, y);
}

} // namespace mygame
