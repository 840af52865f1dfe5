#include "shell/application.h"

#include <functional>
#include <vector>

#include "tests/support/device_test.h"

namespace mygame::tests
{
namespace
{

using Calls = std::vector<std::string>;

/// Notes the calls that reach it among the device's.
class NotingScreen : public Screen
{
public:
    explicit NotingScreen(std::string name) : name_(std::move(name)) {}

    void render(Surface &target) override { note("render", target.width(), target.height()); }
    void update(std::uint32_t now) override { note("update", now); }
    void keyDown(std::uint16_t key) override { note("keyDown", key); }
    void keyUp(std::uint16_t key) override { note("keyUp", key); }
    void pointerMove(std::uint16_t x, std::uint16_t y) override { note("move", x, y); }
    void pointerUp(std::uint16_t x, std::uint16_t y) override { note("up", x, y); }
    void pointerDown(std::uint16_t x, std::uint16_t y) override
    {
        note("down", x, y);
        onTouch();
    }
    bool activate(Application *) override
    {
        note("activate");
        return false;
    }
    void deactivate() override { note("deactivate"); }

    std::function<void()> onTouch = [] {};

private:
    void note(const std::string &call, auto... arguments) const
    {
        if (std::vector<std::string> *notes = platform::device().callNotes())
            notes->push_back((name_ + '.' + call + ... + (' ' + std::to_string(arguments))));
    }

    std::string name_;
};

struct ApplicationTest : DeviceTest {
    ApplicationTest()
    {
        device.switchOn(1000);
        device.frameCostMs = 0;
        application = std::make_unique<Application>();
    }

    bool init()
    {
        device.recordCalls = true;
        return application->init(nullptr, 3);
    }

    void postAt(std::uint32_t milliseconds, std::initializer_list<std::uint32_t> messages)
    {
        for (const std::uint32_t message : messages)
            device.schedule(milliseconds, [this, message] { device.post(message, 0, 0); });
    }

    /// What a screen sees of a run, a call a line, until a quit message arrives.
    Calls screenCallsUntil(std::uint32_t milliseconds)
    {
        postAt(milliseconds, {platform::WM_QUIT});
        application->setCurrentScreen(&screen);
        EXPECT_TRUE(init());
        device.calls.clear();
        application->run();
        std::erase_if(device.calls, [](const std::string &call) { return call[1] != '.'; });
        return device.calls;
    }

    NotingScreen screen{"s"}, other{"t"};
    std::unique_ptr<Application> application;
};

TEST_F(ApplicationTest, TakesTheScreenAndGivesItBackStepByStep)
{
    EXPECT_TRUE(init());
    EXPECT_EQ(device.calls,
              (Calls{"FindWindowW MyClass MyGame", "RegisterClassW MyClass 3",
                     "CreateWindowExW 0 MyClass MyGame 268435456 0 0 240 320", "SetFullScreen window 42",
                     "FindWindowW HHTaskbar null", "ShowWindow taskbar 0", "ShowWindow window 3",
                     "MoveWindow window 0 0 240 320 1", "UpdateWindow window", "GXOpenDisplay window 1",
                     "GXOpenInput"}));
    device.calls.clear();
    application.reset();
    EXPECT_EQ(device.calls, (Calls{"FindWindowW HHTaskbar null", "ShowWindow taskbar 5",
                                   "SetFullScreen window 21", "GXCloseDisplay"}));
}

TEST_F(ApplicationTest, FailsWhenAnotherCopyRunsOrThereIsNoWindow)
{
    device.copyRunning = true;
    EXPECT_FALSE(init());
    device.copyRunning = false;
    device.windowFails = true;
    EXPECT_FALSE(init());
    application.reset();
    EXPECT_EQ(logged(), "InitInit FailedInitInit Failed");
    EXPECT_EQ(device.calls,
              (Calls{"FindWindowW MyClass MyGame", "SetForegroundWindow copy|1", // the one that runs
                     "FindWindowW MyClass MyGame", "RegisterClassW MyClass 3",
                     "CreateWindowExW 0 MyClass MyGame 268435456 0 0 240 320", "FindWindowW HHTaskbar null",
                     "ShowWindow taskbar 5", "SetFullScreen null 21"}));
}

TEST_F(ApplicationTest, RendersThenPresentsThenUpdatesAndNeverCatchesUp)
{
    device.frameCostMs = 16;
    device.onFrame = [this] { device.calls.emplace_back("p.present"); };
    device.schedule(16, [this] { device.frameBufferOn = false; });
    EXPECT_EQ(screenCallsUntil(17),
              (Calls{"s.render 240 320", "p.present", "s.update 1016", "s.update 1016", "s.update 1017"}));
}

TEST_F(ApplicationTest, HandlesEachMessageBeforeItIsDispatched)
{
    constexpr struct {
        std::uint32_t message, wParam, lParam;
        const char *call;
    } kMessages[] = {{6, 0x20000, 0, "GXSuspend"},
                     {6, 0x20001, 0, "GXResume"},
                     {7, 0, 0, "GXResume"},
                     {8, 1, 0, "GXSuspend"},
                     {16, 0, 0, nullptr},
                     {0x100, 0x1FFFF, 0, "s.keyDown 65535"},
                     {0x101, 0x10041, 0, "s.keyUp 65"},
                     {0x200, 9, 0xFFFE8001, "s.move 32769 65534"},
                     {0x201, 9, 319 << 16 | 239, "s.down 239 319"},
                     {0x202, 9, 1 << 16, "s.up 0 1"},
                     {17, 0, 0, nullptr}};
    application->setCurrentScreen(&screen);
    ASSERT_TRUE(init());
    device.enterForeground();
    device.leaveForeground(); // so that no frames are noted
    device.calls.clear();
    Calls expected{"GXResume",  "DispatchMessageW 6 1 0", "GXResume",  "DispatchMessageW 7 0 0",
                   "GXSuspend", "DispatchMessageW 6 0 0", "GXSuspend", "DispatchMessageW 8 0 0"};
    for (const auto &[message, wParam, lParam, call] : kMessages) {
        device.post(message, wParam, lParam);
        if (call)
            expected.emplace_back(call);
        expected.push_back("DispatchMessageW " + std::to_string(message) + ' ' + std::to_string(wParam) +
                           ' ' + std::to_string(static_cast<std::int32_t>(lParam)));
    }
    application->run();
    EXPECT_EQ(device.calls, expected);
}

TEST_F(ApplicationTest, RunsTheDueFrameOfThePassThatStopsIt)
{
    application->requestStop(); // too early to count
    screen.onTouch = [this] { application->requestStop(); };
    postAt(0, {16}); // no reason to stop
    postAt(1, {platform::WM_LBUTTONDOWN, platform::WM_KEYDOWN});
    EXPECT_EQ(screenCallsUntil(2), (Calls{"s.render 240 320", "s.update 1000", "s.down 0 0", "s.keyDown 0",
                                          "s.render 240 320", "s.update 1001"}));
}

} // namespace
} // namespace mygame::tests
