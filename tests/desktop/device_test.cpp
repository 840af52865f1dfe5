#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <SDL.h>
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/frame_buffer.h"
#include "platform/sdl/pixel_conversion.h"
#include "platform/sdl/screen_layout.h"
#include "platform/sdl/sdl_device.h"
#include "platform/window.h"

namespace platform
{
namespace
{

/// The whole device in a window of twice the screen's size that nobody sees, told events as if SDL had them:
/// those that no display server can be made to send.
struct SdlDeviceTest : testing::Test {
    static void SetUpTestSuite()
    {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        device = std::make_unique<SdlDevice>();
        useDevice(*device);
        window = CreateWindowExW(0, u"", u"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        ShowWindow(window, SW_SHOW);
        ASSERT_EQ(GXOpenDisplay(window, GX_FULLSCREEN), 1);
    }

    static void TearDownTestSuite() { device.reset(); }

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
            {WM_LBUTTONDOWN, "down "}, {WM_MOUSEMOVE, "move "}, {WM_LBUTTONUP, "up "},
            {WM_ACTIVATE, "active "},  {WM_SETFOCUS, "focus "}, {WM_KILLFOCUS, "no focus "}};
        std::string text;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            text += names.at(message.message) + std::to_string(message.wParam) + ' ' +
                    std::to_string(message.lParam & 0xFFFF) + ',' + std::to_string(message.lParam >> 16) +
                    "  ";
        return text;
    }

    static inline std::unique_ptr<SdlDevice> device;
    static inline HWND window = nullptr;
};

TEST_F(SdlDeviceTest, LetsGoOfTheStylusBeforeItLeavesTheForeground)
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

TEST_F(SdlDeviceTest, HasOneStylusForMouseAndFingers)
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

TEST_F(SdlDeviceTest, ShowsAFrameOnlyWhenItIsNew)
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

TEST_F(SdlDeviceTest, HasAClockThatMovesInSleepAndAtTheDisplaysPace)
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

TEST(Pixels, AreConvertedExactly)
{
    for (unsigned pixel = 0; pixel <= 0xFFFF; ++pixel) {
        const unsigned red = pixel >> 11, green = pixel >> 5 & 63, blue = pixel & 31;
        const unsigned rgb =
            (red * 8 + red / 4) << 16 | (green * 4 + green / 16) << 8 | (blue * 8 + blue / 4);
        ASSERT_EQ(toXrgb8888(static_cast<std::uint16_t>(pixel)), 0xFF000000 | rgb) << "pixel " << pixel;
    }
}

TEST(Pixels, BecomeSquaresAndNothingElseIsWritten)
{
    constexpr std::uint32_t kUntouched = 0x12345678;
    constexpr int kWidth = 5;
    const std::uint16_t row[kWidth] = {0xFFFF, 0x07E0, 0x0000, 0xF800, 0x001F};
    for (int scale = 1; scale <= 7; ++scale) {
        const int pitch = kWidth * scale + 1;
        std::vector<std::uint32_t> target(static_cast<std::size_t>(pitch * (scale + 1)), kUntouched);
        convertRow(row, kWidth, scale, reinterpret_cast<std::byte *>(target.data()),
                   pitch * static_cast<int>(sizeof target[0]));
        for (int i = 0; i < static_cast<int>(target.size()); ++i) {
            const int x = i % pitch / scale;
            const bool inside = x < kWidth && i / pitch < scale;
            EXPECT_EQ(target[static_cast<std::size_t>(i)], inside ? toXrgb8888(row[x]) : kUntouched)
                << "element " << i << " at scale " << scale;
        }
    }
}

TEST(ScreenLayout, IsTheLargestWholeMultipleInTheMiddle)
{
    EXPECT_EQ(layOut({719, 2000}), (ScreenLayout{2, 119, 680}));
    EXPECT_EQ(layOut({1920, 1080}), (ScreenLayout{3, 600, 60}));
    EXPECT_EQ(layOut({200, 300}), (ScreenLayout{1, -20, -10}));
}

TEST(ScreenLayout, FindsTheLastPixelInAWindowOfAnySize)
{
    for (int width = 1; width < 1300; width += 7) {
        for (int height = 1; height < 1700; height += 11) {
            const WindowSize window{{width, height}, {width, height}};
            const auto [scale, left, top] = layOut(window.pixels);
            const int right = left + kScreenSize.width * scale, bottom = top + kScreenSize.height * scale;
            ASSERT_EQ(toScreen(window, {left - 1, bottom - 1}), (Point{-1, 319})) << width << " x " << height;
            ASSERT_EQ(toScreen(window, {right, top}), (Point{240, 0})) << width << " x " << height;
        }
    }
}

TEST(ScreenLayout, CountsPhysicalPixelsOnADenseDisplay)
{
    // 480 x 640 points of 1.5 pixels: the screen is shown at 3 times its size.
    const WindowSize window{{480, 640}, {720, 960}};
    EXPECT_EQ(toScreen(window, {1, 1}), (Point{0, 0}));
    EXPECT_EQ(toScreen(window, {2, 3}), (Point{1, 1}));
    EXPECT_EQ(toScreen(window, {-1, 640}), (Point{-1, 320}));
}

} // namespace
} // namespace platform
