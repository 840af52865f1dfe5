#include <csignal>
#include <cstdlib>
#include <map>
#include <string>

#include <SDL.h>
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/frame_buffer.h"
#include "platform/sound.h"
#include "platform/window.h"

namespace platform
{
namespace
{

/// The whole device in a window of twice the screen's size that nobody sees, told events as if SDL had them.
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

    static void button(SDL_EventType type, int x, int y, std::uint8_t which = SDL_BUTTON_LEFT)
    {
        push({.button = {type, 0, 0, 0, which, 0, 0, 0, x, y}});
    }

    static void motion(int x, int y) { push({.motion = {SDL_MOUSEMOTION, 0, 0, 0, 0, x, y, 0, 0}}); }

    static void finger(SDL_EventType type, SDL_FingerID id, float x, float y)
    {
        push({.tfinger = {type, 0, 0, id, x, y, 0, 0, 0, 0}});
    }

    static void key(SDL_EventType type, SDL_Keycode code, int modifiers = KMOD_NONE, std::uint8_t repeat = 0)
    {
        const auto modifierBits = static_cast<std::uint16_t>(modifiers);
        push({.key = {type, 0, 0, 0, repeat, 0, 0, {SDL_SCANCODE_UNKNOWN, code, modifierBits, 0}}});
    }

    /// All waiting messages as text, such as "down 3,4  up 3,4  ".
    static std::string messages()
    {
        std::string text;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            text += describe(message) + "  ";
        return text;
    }

    static std::string describe(const MSG &message)
    {
        const std::string place =
            ' ' + std::to_string(message.lParam & 0xFFFF) + ',' + std::to_string(message.lParam >> 16);
        const std::string parameter = ' ' + std::to_string(message.wParam);
        const std::map<std::uint32_t, std::string> names = {{WM_LBUTTONDOWN, "down" + place},
                                                            {WM_MOUSEMOVE, "move" + place},
                                                            {WM_LBUTTONUP, "up" + place},
                                                            {WM_KEYDOWN, "press" + parameter},
                                                            {WM_KEYUP, "release" + parameter},
                                                            {WM_ACTIVATE, "activate" + parameter},
                                                            {WM_SETFOCUS, "setfocus"},
                                                            {WM_KILLFOCUS, "killfocus"},
                                                            {WM_QUIT, "quit"},
                                                            {WM_QUERYENDSESSION, "queryendsession"}};
        return names.at(message.message);
    }

    static inline HWND window = nullptr;
};

TEST_F(DesktopDevice, LetsGoOfTheStylusBeforeItLeavesTheForeground)
{
    button(SDL_MOUSEBUTTONDOWN, 101, 200);
    EXPECT_EQ(messages(), "down 50,100  ");
    focus(SDL_WINDOWEVENT_FOCUS_LOST);
    EXPECT_EQ(messages(), "up 50,100  activate 0  killfocus  ");
    EXPECT_EQ(GetForegroundWindow(), nullptr);
    button(SDL_MOUSEBUTTONUP, 101, 200);
    button(SDL_MOUSEBUTTONDOWN, 101, 200);
    button(SDL_MOUSEBUTTONUP, 101, 200);
    EXPECT_EQ(messages(), "") << "in the background";
    focus(SDL_WINDOWEVENT_FOCUS_GAINED);
    EXPECT_EQ(messages(), "activate 1  setfocus  ");
    EXPECT_EQ(GetForegroundWindow(), window);
}

TEST_F(DesktopDevice, HasOneStylusForMouseAndFingers)
{
    finger(SDL_FINGERDOWN, 7, 0.0f, 0.0f);
    finger(SDL_FINGERDOWN, 8, 0.5f, 0.5f);
    button(SDL_MOUSEBUTTONDOWN, 100, 100);
    motion(120, 120);
    finger(SDL_FINGERMOTION, 8, 0.6f, 0.6f);
    finger(SDL_FINGERMOTION, 7, 1.0f, 1.0f);
    finger(SDL_FINGERUP, 8, 0.6f, 0.6f);
    button(SDL_MOUSEBUTTONUP, 120, 120);
    finger(SDL_FINGERUP, 7, -0.1f, 0.5f);
    EXPECT_EQ(messages(), "down 0,0  move 239,319  up 0,160  ");
}

TEST_F(DesktopDevice, KeepsTheStylusOnTheScreen)
{
    button(SDL_MOUSEBUTTONDOWN, 480, 100);
    motion(100, 100);
    button(SDL_MOUSEBUTTONDOWN, 100, 100, SDL_BUTTON_RIGHT);
    EXPECT_EQ(messages(), "") << "beside the picture, with another button";
    button(SDL_MOUSEBUTTONDOWN, 479, 639);
    motion(-1, -1000);
    button(SDL_MOUSEBUTTONUP, -500, 5000);
    EXPECT_EQ(messages(), "down 239,319  move 0,0  up 0,319  ");
}

TEST_F(DesktopDevice, SendsButtonsButNoChords)
{
    for (const SDL_Keycode code : {SDLK_RETURN, SDLK_ESCAPE, SDLK_TAB, SDLK_a})
        key(SDL_KEYDOWN, code);
    key(SDL_KEYDOWN, SDLK_RETURN, KMOD_NONE, 1);
    key(SDL_KEYUP, SDLK_ESCAPE, KMOD_LALT);
    key(SDL_KEYUP, SDLK_RETURN);
    for (const int modifier : {KMOD_LALT, KMOD_RALT, KMOD_LCTRL, KMOD_RCTRL, KMOD_LGUI, KMOD_RGUI})
        key(SDL_KEYDOWN, SDLK_SPACE, modifier);
    key(SDL_KEYUP, SDLK_SPACE);
    EXPECT_EQ(messages(), "press 13  press 27  release 27  release 13  ");
    key(SDL_KEYDOWN, SDLK_SPACE, KMOD_LSHIFT | KMOD_CAPS | KMOD_NUM);
    key(SDL_KEYUP, SDLK_SPACE);
    EXPECT_EQ(messages(), "press 32  release 32  ") << "states that make no chord";
}

TEST_F(DesktopDevice, DropsTheReleasesThatSdlMakesUp)
{
    key(SDL_KEYDOWN, SDLK_RETURN);
    key(SDL_KEYDOWN, SDLK_UP);
    key(SDL_KEYUP, SDLK_UP);
    motion(5, 5);
    key(SDL_KEYUP, SDLK_RETURN);
    focus(SDL_WINDOWEVENT_FOCUS_LOST);
    EXPECT_EQ(messages(), "press 13  press 38  release 38  activate 0  killfocus  ");
    focus(SDL_WINDOWEVENT_FOCUS_GAINED);
    key(SDL_KEYUP, SDLK_RETURN);
    EXPECT_EQ(messages(), "activate 1  setfocus  ") << "the release belongs to a press before";
}

TEST_F(DesktopDevice, IsAskedToEnd)
{
    push({.type = SDL_QUIT});
    push({.type = SDL_APP_TERMINATING});
    EXPECT_EQ(messages(), "quit  queryendsession  ");
    for (const int signal : {SIGINT, SIGTERM}) {
        std::raise(signal);
        EXPECT_EQ(messages(), "quit  ");
    }
}

TEST_F(DesktopDevice, ShowsAFrameOnlyWhenItIsNew)
{
    auto *frame = static_cast<std::uint16_t *>(GXBeginDraw());
    frame[0] = 0xFFFF;
    GXEndDraw();
    const SDL_Surface *surface = SDL_GetWindowSurface(SDL_GetWindowFromID(1));
    auto *shown = static_cast<std::uint32_t *>(surface->pixels);
    EXPECT_EQ(shown[1], 0xFFFFFFFF);

    shown[1] = 1;
    GXBeginDraw();
    GXEndDraw();
    EXPECT_EQ(shown[1], 1u) << "an unchanged frame was shown again";

    focus(SDL_WINDOWEVENT_EXPOSED);
    messages();
    GXBeginDraw();
    GXEndDraw();
    EXPECT_EQ(shown[1], 0xFFFFFFFF) << "what the window lost was not shown again";

    focus(SDL_WINDOWEVENT_FOCUS_LOST);
    shown[1] = 1;
    focus(SDL_WINDOWEVENT_EXPOSED);
    messages();
    EXPECT_EQ(shown[1], 0xFFFFFFFF) << "in the background no frame follows";
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

TEST_F(DesktopDevice, PlaysNoFileThatIsNoSound)
{
    EXPECT_EQ(PlaySoundW(u"\\no\\such\\file.wav", nullptr, SND_FILENAME | SND_ASYNC), 0);
    EXPECT_EQ(PlaySoundW(u"\\tmp", nullptr, SND_FILENAME | SND_ASYNC), 0);
}

} // namespace
} // namespace platform
