#include <csignal>
#include <cstdlib>
#include <string>

#include <SDL.h>
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/desktop/pixel_conversion.h"
#include "platform/desktop/screen_layout.h"
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
        SDL_Event event{};
        event.type = SDL_WINDOWEVENT;
        event.window.event = static_cast<std::uint8_t>(change);
        push(event);
    }

    static void mouse(SDL_EventType type, int x, int y, std::uint8_t button = SDL_BUTTON_LEFT)
    {
        SDL_Event event{};
        event.type = type;
        if (type == SDL_MOUSEMOTION) {
            event.motion.x = x;
            event.motion.y = y;
        } else {
            event.button.button = button;
            event.button.x = x;
            event.button.y = y;
        }
        push(event);
    }

    static void finger(SDL_EventType type, SDL_FingerID id, float x, float y)
    {
        SDL_Event event{};
        event.type = type;
        event.tfinger.fingerId = id;
        event.tfinger.x = x;
        event.tfinger.y = y;
        push(event);
    }

    static void key(SDL_EventType type, SDL_Keycode code, int modifiers = KMOD_NONE, std::uint8_t repeat = 0)
    {
        SDL_Event event{};
        event.type = type;
        event.key.repeat = repeat;
        event.key.keysym.sym = code;
        event.key.keysym.mod = static_cast<std::uint16_t>(modifiers);
        push(event);
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
            std::to_string(message.lParam & 0xFFFF) + ',' + std::to_string(message.lParam >> 16);
        const std::string parameter = std::to_string(message.wParam);
        switch (message.message) {
        case WM_LBUTTONDOWN:
            return "down " + place;
        case WM_MOUSEMOVE:
            return "move " + place;
        case WM_LBUTTONUP:
            return "up " + place;
        case WM_KEYDOWN:
            return "press " + parameter;
        case WM_KEYUP:
            return "release " + parameter;
        case WM_ACTIVATE:
            return "activate " + parameter;
        case WM_SETFOCUS:
            return "setfocus";
        case WM_KILLFOCUS:
            return "killfocus";
        case WM_QUIT:
            return "quit";
        case WM_QUERYENDSESSION:
            return "queryendsession";
        default:
            return "message " + std::to_string(message.message);
        }
    }

    static inline HWND window = nullptr;
};

TEST_F(DesktopDevice, LetsGoOfTheStylusBeforeItLeavesTheForeground)
{
    mouse(SDL_MOUSEBUTTONDOWN, 101, 200);
    EXPECT_EQ(messages(), "down 50,100  ");
    EXPECT_EQ(GetForegroundWindow(), window);
    focus(SDL_WINDOWEVENT_FOCUS_LOST);
    EXPECT_EQ(messages(), "up 50,100  activate 0  killfocus  ");
    EXPECT_EQ(GetForegroundWindow(), nullptr);
    mouse(SDL_MOUSEBUTTONUP, 101, 200);
    mouse(SDL_MOUSEBUTTONDOWN, 101, 200);
    mouse(SDL_MOUSEBUTTONUP, 101, 200);
    EXPECT_EQ(messages(), "") << "in the background";
    focus(SDL_WINDOWEVENT_FOCUS_GAINED);
    EXPECT_EQ(messages(), "activate 1  setfocus  ");
    EXPECT_EQ(GetForegroundWindow(), window);
}

TEST_F(DesktopDevice, HasOneStylusForMouseAndFingers)
{
    finger(SDL_FINGERDOWN, 7, 0.0f, 0.0f);
    finger(SDL_FINGERDOWN, 8, 0.5f, 0.5f);
    mouse(SDL_MOUSEBUTTONDOWN, 100, 100);
    mouse(SDL_MOUSEMOTION, 120, 120);
    finger(SDL_FINGERMOTION, 8, 0.6f, 0.6f);
    finger(SDL_FINGERMOTION, 7, 1.0f, 1.0f);
    finger(SDL_FINGERUP, 8, 0.6f, 0.6f);
    mouse(SDL_MOUSEBUTTONUP, 120, 120);
    finger(SDL_FINGERUP, 7, -0.1f, 0.5f);
    EXPECT_EQ(messages(), "down 0,0  move 239,319  up 0,160  ");
}

TEST_F(DesktopDevice, KeepsTheStylusOnTheScreen)
{
    mouse(SDL_MOUSEBUTTONDOWN, 480, 100);
    mouse(SDL_MOUSEMOTION, 100, 100);
    mouse(SDL_MOUSEBUTTONUP, 100, 100);
    mouse(SDL_MOUSEBUTTONDOWN, 100, 100, SDL_BUTTON_RIGHT);
    mouse(SDL_MOUSEMOTION, 100, 100);
    EXPECT_EQ(messages(), "") << "beside the picture, with another button, with none";
    mouse(SDL_MOUSEBUTTONDOWN, 479, 639);
    mouse(SDL_MOUSEMOTION, 478, 638);
    mouse(SDL_MOUSEMOTION, -1, -1000);
    mouse(SDL_MOUSEBUTTONUP, -500, 5000);
    EXPECT_EQ(messages(), "down 239,319  move 0,0  up 0,319  ");
}

TEST_F(DesktopDevice, SendsButtonsButNoChords)
{
    for (const SDL_Keycode code : {SDLK_RETURN, SDLK_ESCAPE, SDLK_KP_ENTER, SDLK_LALT, SDLK_TAB, SDLK_a})
        key(SDL_KEYDOWN, code);
    key(SDL_KEYDOWN, SDLK_RETURN, KMOD_NONE, 1);
    key(SDL_KEYUP, SDLK_ESCAPE, KMOD_LALT);
    key(SDL_KEYUP, SDLK_RETURN);
    EXPECT_EQ(messages(), "press 13  press 27  release 27  release 13  ");
    for (const int modifier : {KMOD_LALT, KMOD_RALT, KMOD_LCTRL, KMOD_RCTRL, KMOD_LGUI, KMOD_RGUI}) {
        key(SDL_KEYDOWN, SDLK_SPACE, modifier);
        key(SDL_KEYUP, SDLK_SPACE);
    }
    EXPECT_EQ(messages(), "");
    key(SDL_KEYDOWN, SDLK_SPACE, KMOD_LSHIFT | KMOD_CAPS | KMOD_NUM);
    EXPECT_EQ(messages(), "press 32  ") << "states that make no chord";
    key(SDL_KEYUP, SDLK_SPACE);
    messages();
}

TEST_F(DesktopDevice, DropsTheReleasesThatSdlMakesUp)
{
    key(SDL_KEYDOWN, SDLK_RETURN);
    key(SDL_KEYDOWN, SDLK_LEFT);
    key(SDL_KEYDOWN, SDLK_UP);
    key(SDL_KEYUP, SDLK_UP);
    mouse(SDL_MOUSEMOTION, 5, 5);
    key(SDL_KEYUP, SDLK_RETURN);
    key(SDL_KEYUP, SDLK_LEFT);
    focus(SDL_WINDOWEVENT_FOCUS_LOST);
    EXPECT_EQ(messages(), "press 13  press 37  press 38  release 38  activate 0  killfocus  ");
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
        EXPECT_EQ(messages(), "");
    }
}

TEST_F(DesktopDevice, ShowsAFrameOnlyWhenItIsNew)
{
    const GXDisplayProperties display = GXGetDisplayProperties();
    EXPECT_EQ(display.cbyPitch, 480);
    auto *frame = static_cast<std::uint16_t *>(GXBeginDraw());
    frame[0] = 0xFFFF;
    frame[1] = 0x07E0;
    GXEndDraw();
    const SDL_Surface *surface = SDL_GetWindowSurface(SDL_GetWindowFromID(1));
    auto *shown = static_cast<std::uint32_t *>(surface->pixels);
    EXPECT_EQ(shown[1], 0xFFFFFFFF);
    EXPECT_EQ(shown[2], 0xFF00FF00);

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
    constexpr std::uint32_t kLeastStart = 10000;
    constexpr int kFrames = 12;
    const std::uint32_t start = GetTickCount();
    EXPECT_GE(start, kLeastStart);
    SDL_Delay(3);
    EXPECT_EQ(GetTickCount(), start);
    Sleep(3);
    EXPECT_GE(GetTickCount() - start, 5u);
    const std::uint32_t before = GetTickCount();
    for (int i = 0; i < kFrames; ++i)
        GXEndDraw();
    EXPECT_GE(GetTickCount() - before, (kFrames - 2) * 1000u / 60) << "frames come faster than 60 a second";
}

TEST_F(DesktopDevice, AnswersForWhatADesktopDoesNotHave)
{
    EXPECT_EQ(FindWindowW(u"HHTaskbar", nullptr), nullptr);
    EXPECT_EQ(ShowWindow(nullptr, SW_HIDE), 0);
    EXPECT_EQ(PlaySoundW(u"\\no\\such\\file.wav", nullptr, SND_FILENAME | SND_ASYNC), 0);
    EXPECT_EQ(PlaySoundW(u"\\tmp", nullptr, SND_FILENAME | SND_ASYNC), 0);
}

} // namespace
} // namespace platform
