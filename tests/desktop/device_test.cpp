#include <cstdlib>
#include <map>
#include <string>

#include <SDL.h>
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/frame_buffer.h"
#include "platform/window.h"

namespace platform
{
namespace
{

/// The whole device in a window of twice the screen's size that nobody sees, told events as if SDL had them:
/// those that no display server can be made to send.
class DesktopDevice : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        window = CreateWindowExW(0, u"", u"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        ShowWindow(window, SW_SHOW);
        ASSERT_EQ(GXOpenDisplay(window, GX_FULLSCREEN), 1);
    }

    void SetUp() override
    {
        focus(SDL_WINDOWEVENT_FOCUS_GAINED);
        messages();
    }

    static void push(SDL_Event event) { SDL_PushEvent(&event); }

    static void focus(SDL_WindowEventID change)
    {
        SDL_WindowEvent event{};
        event.type = SDL_WINDOWEVENT;
        event.event = static_cast<std::uint8_t>(change);
        push({.window = event});
    }

    static void button(SDL_EventType type, int x, int y)
    {
        push({.button = {type, 0, 0, 0, SDL_BUTTON_LEFT, 0, 0, 0, x, y}});
    }

    static void finger(SDL_EventType type, SDL_FingerID id, float x, float y)
    {
        push({.tfinger = {type, 0, 0, id, x, y, 0, 0, 0, 0}});
    }

    /// All waiting messages, with their parameters: "down 1 3,4  up 0 3,4  ".
    static std::string messages()
    {
        const std::map<std::uint32_t, std::string> names = {
            {WM_LBUTTONDOWN, "down "}, {WM_MOUSEMOVE, "move "},    {WM_LBUTTONUP, "up "},
            {WM_KEYDOWN, "press "},    {WM_KEYUP, "release "},     {WM_ACTIVATE, "active "},
            {WM_SETFOCUS, "focus "},   {WM_KILLFOCUS, "no focus "}};
        std::string text;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            text += names.at(message.message) + std::to_string(message.wParam) + ' ' +
                    std::to_string(message.lParam & 0xFFFF) + ',' + std::to_string(message.lParam >> 16) +
                    "  ";
        return text;
    }

    static inline HWND window = nullptr;
};

TEST_F(DesktopDevice, LetsGoOfTheStylusBeforeItLeavesTheForeground)
{
    button(SDL_MOUSEBUTTONDOWN, 101, 200);
    focus(SDL_WINDOWEVENT_FOCUS_LOST);
    button(SDL_MOUSEBUTTONUP, 101, 200);
    button(SDL_MOUSEBUTTONDOWN, 101, 200);
    button(SDL_MOUSEBUTTONUP, 101, 200);
    EXPECT_EQ(messages(), "down 1 50,100  up 0 50,100  active 0 0,0  no focus 0 0,0  ");
    EXPECT_EQ(GetForegroundWindow(), nullptr);
    focus(SDL_WINDOWEVENT_FOCUS_GAINED);
    EXPECT_EQ(messages(), "active 1 0,0  focus 0 0,0  ");
    EXPECT_EQ(GetForegroundWindow(), window);
}

TEST_F(DesktopDevice, HasOneStylusForMouseAndFingers)
{
    finger(SDL_FINGERDOWN, 7, 0.0f, 0.0f);
    finger(SDL_FINGERDOWN, 8, 0.5f, 0.5f);
    button(SDL_MOUSEBUTTONDOWN, 100, 100);
    finger(SDL_FINGERMOTION, 8, 0.6f, 0.6f);
    finger(SDL_FINGERMOTION, 7, 1.0f, 1.0f);
    finger(SDL_FINGERUP, 8, 0.6f, 0.6f);
    button(SDL_MOUSEBUTTONUP, 120, 120);
    finger(SDL_FINGERUP, 7, -0.1f, 0.5f);
    EXPECT_EQ(messages(), "down 1 0,0  move 1 239,319  up 0 0,160  ");
}

TEST_F(DesktopDevice, ShowsAFrameOnlyWhenItIsNew)
{
    static_cast<std::uint16_t *>(GXBeginDraw())[0] = 0xFFFF;
    GXEndDraw();
    auto *shown = static_cast<std::uint32_t *>(SDL_GetWindowSurface(SDL_GetWindowFromID(1))->pixels);
    EXPECT_EQ(shown[1], 0xFFFFFFFF);

    shown[1] = 1;
    GXEndDraw();
    EXPECT_EQ(shown[1], 1u) << "an unchanged frame was shown again";
    focus(SDL_WINDOWEVENT_EXPOSED);
    messages();
    GXEndDraw();
    EXPECT_EQ(shown[1], 0xFFFFFFFF) << "what the window lost was not shown again";
}

TEST_F(DesktopDevice, HasAClockThatMovesInSleepAndAtTheDisplaysPace)
{
    constexpr int kFrames = 12;
    const std::uint32_t start = GetTickCount();
    SDL_Delay(3);
    EXPECT_EQ(GetTickCount(), start);
    Sleep(3);
    EXPECT_GE(GetTickCount() - start, 5u);
    const std::uint32_t before = GetTickCount();
    for (int i = 0; i < kFrames; ++i)
        GXEndDraw();
    EXPECT_GE(GetTickCount() - before, (kFrames - 2) * 1000u / 60) << "frames come faster than 60 a second";
}

} // namespace
} // namespace platform
