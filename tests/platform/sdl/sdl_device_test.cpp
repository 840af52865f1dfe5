#include "platform/sdl/sdl_device.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <SDL.h>
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/common/pixel.h"
#include "platform/frame_buffer.h"
#include "platform/sdl/escape_key.h"
#include "platform/sdl/frame_pacer.h"
#include "platform/sdl/game_clock.h"
#include "platform/sdl/picture_scaler.h"
#include "platform/sdl/pixel_conversion.h"
#include "platform/sdl/screen_layout.h"
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
        ASSERT_EQ(GXOpenDisplay(nullptr, GX_FULLSCREEN), 0) << "without a window";
        window = CreateWindowExW(0, u"", u"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        SDL_SetWindowSize(SDL_GetWindowFromID(1), 2 * kScreenSize.width, 2 * kScreenSize.height);
        ShowWindow(window, SW_SHOW);
        ASSERT_EQ(GXOpenDisplay(window, GX_FULLSCREEN), 1);
    }

    static void TearDownTestSuite() { device.reset(); }

    void SetUp() override
    {
        focus(SDL_WINDOWEVENT_FOCUS_GAINED);
        Sleep(1);
        messages();
    }

    /// Draws two frames, of which the later is shown, with this pixel at a place.
    static void showFrame(std::uint16_t pixel, int place = 0)
    {
        for (int i = 0; i < 2; ++i) {
            static_cast<std::uint16_t *>(GXBeginDraw())[place] = pixel;
            GXEndDraw();
        }
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
            {WM_LBUTTONDOWN, "down "}, {WM_MOUSEMOVE, "move "},
            {WM_LBUTTONUP, "up "},     {WM_ACTIVATE, "active "},
            {WM_SETFOCUS, "focus "},   {WM_KILLFOCUS, "no focus "},
            {WM_QUIT, "quit "},        {WM_QUERYENDSESSION, "end of session "}};
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

TEST_F(SdlDeviceTest, DropsATapThatLosesTheFocus)
{
    button(SDL_MOUSEBUTTONDOWN, 101, 200);
    focus(SDL_WINDOWEVENT_FOCUS_LOST);
    button(SDL_MOUSEBUTTONUP, 101, 200);
    EXPECT_EQ(messages(), "down 1 50,100  active 0 0,0  no focus 0 0,0  ");
    EXPECT_EQ(GetForegroundWindow(), nullptr);
}

TEST_F(SdlDeviceTest, StandsStillInTheBackground)
{
    focus(SDL_WINDOWEVENT_FOCUS_LOST);
    messages();
    const Tick left = GetTickCount();
    button(SDL_MOUSEBUTTONDOWN, 101, 200);
    Sleep(1);
    button(SDL_MOUSEBUTTONUP, 101, 200);
    Sleep(1);
    focus(SDL_WINDOWEVENT_FOCUS_GAINED);
    EXPECT_EQ(messages(), "") << "what brings the window to the front is polled after the clock has moved";
    EXPECT_EQ(GetTickCount(), left);
    Sleep(7);
    EXPECT_EQ(GetTickCount(), left + 7);
    EXPECT_EQ(GetForegroundWindow(), window);
    EXPECT_EQ(messages(), "active 1 0,0  focus 0 0,0  ");
}

TEST_F(SdlDeviceTest, AsksForTheEndOnce)
{
    push({.type = SDL_QUIT});
    push({.type = SDL_APP_TERMINATING});
    EXPECT_EQ(messages(), "quit 0 0,0  end of session 0 0,0  ");
    SDL_DropEvent drop{};
    drop.type = SDL_DROPFILE;
    drop.file = SDL_strdup("game");
    push({.drop = drop});
    EXPECT_EQ(messages() + device->droppedFile(), "quit 0 0,0  game");
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

TEST_F(SdlDeviceTest, ShowsOnlyTheRowsOfAFrameThatAreNew)
{
    showFrame(0xFFFF);
    auto *shown = static_cast<std::uint32_t *>(SDL_GetWindowSurface(SDL_GetWindowFromID(1))->pixels);
    EXPECT_EQ(shown[1], 0xFFFFFFFF);

    constexpr int kLast = 4 * kScreenSize.width * kScreenSize.height - 1;
    shown[1] = shown[kLast] = 1;
    showFrame(0xFFFF);
    EXPECT_EQ(shown[1], 1u) << "an unchanged frame was shown again";
    showFrame(0);
    EXPECT_TRUE(shown[1] == 0xFF000000 && shown[kLast] == 1) << "the first row has changed";
    shown[1] = 1;
    showFrame(0xFFFF, kScreenSize.width * kScreenSize.height - 1);
    EXPECT_TRUE(shown[1] == 1 && shown[kLast] == 0xFFFFFFFF) << "the last row has changed";
    shown[kLast] = 1;
    focus(SDL_WINDOWEVENT_EXPOSED);
    messages();
    showFrame(0xFFFF);
    EXPECT_TRUE(shown[1] == 0xFFFFFFFF && shown[kLast] != 1) << "what the window lost was not shown again";
}

TEST(GameClock, GoesAlongTheGridOfRefreshes)
{
    GameClock clock(5000000);
    EXPECT_EQ(clock.tick(), 5000000u);
    clock.passRefreshes(1);
    EXPECT_EQ(clock.tick(), 5000015u);
    ASSERT_TRUE(clock.standsBeforeRefresh());
    clock.moveToRefresh();
    EXPECT_FALSE(clock.standsBeforeRefresh());
    clock.passRefreshes(1);
    EXPECT_EQ(clock.tick(), 5000032u);
    clock.moveToRefresh();
    clock.passRefreshes(58); // 57 were missed
    EXPECT_EQ(clock.tick(), 5000999u);
    clock.moveToRefresh(2); // 2 were missed that only now are known
    EXPECT_EQ(clock.tick(), 5001033u);
    clock.pass(67);
    clock.setRefreshRate(144);
    clock.passRefreshes(1);
    EXPECT_EQ(clock.tick(), 5001103u) << "the 159th refresh of 144 a second is the next";
}

TEST(GameClock, StaysAwayFromTheEdgesOfTicks)
{
    EXPECT_EQ(GameClock(0).tick(), 10000u);
    EXPECT_EQ(GameClock(0xFFFFFFFF).tick(), 0x3FFFFFFFu);
    GameClock clock(0x3FFFFFFF);
    clock.pass(0x40000000);
    EXPECT_EQ(clock.tick(), 0x80000000u) << "on the greatest signed tick it could stand for ever";
}

/// Time that passes only in waiting, and where a test says so.
struct TestTime final : RealTime {
    Clock::time_point now() override { return moment; }
    void sleepUntil(Clock::time_point time) override { moment = std::max(moment, time); }
    long long ms() const
    {
        return std::chrono::duration_cast<std::chrono::milliseconds>(moment.time_since_epoch()).count();
    }

    bool waits() const override { return canWait; }

    Clock::time_point moment;
    bool canWait = true;
};

TEST(FramePacer, WaitsForTheGridAndCountsTheRefreshesThatPassed)
{
    struct Frame {
        int takesMs;
        std::uint32_t refreshes;
        long long shownAtMs;
    };
    const auto show = [](VerticalSync sync, std::initializer_list<Frame> frames) {
        TestTime time;
        FramePacer pacer(time);
        EXPECT_EQ(pacer.setRefreshRate(100), 100u);
        for (const auto &[takesMs, refreshes, shownAtMs] : frames) {
            time.moment += std::chrono::milliseconds(takesMs);
            EXPECT_EQ(pacer.wait(sync), refreshes) << shownAtMs;
            EXPECT_EQ(time.ms(), shownAtMs);
        }
    };
    show(VerticalSync::Off, {{0, 1, 10},
                             {19, 1, 29}, // late, but before the refresh at 30
                             {0, 1, 30},  // what is late does not move the grid
                             {35, 3, 65}, // after the refreshes at 40, 50 and 60
                             {0, 1, 70},
                             {9010, 901, 9080}, // the longest frame there is
                             {9011, 1, 18091},  // the machine slept
                             {3, 1, 18101}});
    show(VerticalSync::On, {{6, 1, 6},   // held for more than half a period
                            {5, 1, 16},  // not held at all
                            {26, 3, 42}, // nearer to the third refresh than to the second
                            {9000, 900, 9042},
                            {9001, 1, 18043}});
}

TEST(FramePacer, CountsWhatWasMissedWhereNothingWaits)
{
    using namespace std::chrono_literals;
    TestTime time;
    time.canWait = false;
    FramePacer pacer(time);
    pacer.setRefreshRate(100);
    EXPECT_EQ(pacer.wait(VerticalSync::On), 1u);
    time.moment += 14ms; // late, but nearer to the first refresh than to the second
    EXPECT_EQ(pacer.takeMissed(), 0u);
    EXPECT_EQ(pacer.wait(VerticalSync::Off), 1u);
    EXPECT_EQ(time.ms(), 14);
    time.moment += 6ms;
    EXPECT_EQ(pacer.takeMissed(), 0u);
    time.moment += 31ms;
    EXPECT_EQ(pacer.takeMissed(), 2u);
    time.moment += 10s + 1ms;
    EXPECT_EQ(pacer.takeMissed(), 0u) << "the machine slept";
}

TEST(FramePacer, TakesRatesThatNoDisplayHasFor60)
{
    TestTime time;
    FramePacer pacer(time);
    for (const auto &[told, taken] : {std::pair{0, 60u}, {23, 60u}, {24, 24u}, {1000, 500u}})
        EXPECT_EQ(pacer.setRefreshRate(told), taken);
}

TEST(EscapeKey, CountsWhenPressedTwiceWithinTwoSeconds)
{
    using namespace std::chrono_literals;
    const EscapeKey::Clock::time_point start;
    EscapeKey escape;
    EXPECT_FALSE(escape.press(start));
    EXPECT_TRUE(escape.isAsking(start + 1999ms));
    EXPECT_FALSE(escape.isAsking(start + 2s));
    EXPECT_FALSE(escape.press(start + 2s));
    EXPECT_TRUE(escape.press(start + 3999ms));
    EXPECT_FALSE(escape.press(start + 4s)) << "each pair counts once";
    escape.forget();
    EXPECT_FALSE(escape.press(start + 5s));
}

TEST(Pixels, AreConvertedExactly)
{
    for (unsigned pixel = 0; pixel <= 0xFFFF; ++pixel) {
        const unsigned red = pixel >> 11, green = pixel >> 5 & 63, blue = pixel & 31;
        const unsigned rgb =
            (red * 8 + red / 4) << 16 | (green * 4 + green / 16) << 8 | (blue * 8 + blue / 4);
        ASSERT_EQ(common::toXrgb8888(static_cast<std::uint16_t>(pixel)), 0xFF000000 | rgb)
            << "pixel " << pixel;
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
            EXPECT_EQ(target[static_cast<std::size_t>(i)], inside ? common::toXrgb8888(row[x]) : kUntouched)
                << "element " << i << " at scale " << scale;
        }
    }
}

TEST(PictureScaler, IsExactInsideAPixelAndMixesAcrossEdges)
{
    Frame frame;
    for (std::size_t i = 0; i < frame.size(); ++i)
        frame[i] = static_cast<std::uint16_t>(i * 40503);
    PictureScaler scaler;
    for (const Size size : {Size{240, 320}, {241, 321}, {450, 600}, {810, 1080}, {1079, 1439}}) {
        scaler.resize(size);
        std::vector<std::uint32_t> picture(static_cast<std::size_t>(size.width) *
                                           static_cast<std::size_t>(size.height));
        const std::ptrdiff_t pitch = size.width * 4;
        const RowSpan lower = scaler.rowsShowing({100, 320});
        scaler.draw(frame, {0, lower.first}, reinterpret_cast<std::byte *>(picture.data()), pitch);
        scaler.draw(frame, lower, reinterpret_cast<std::byte *>(picture.data()) + lower.first * pitch, pitch);
        EXPECT_LE(lower.first * 320 / size.height, 100);
        for (int last = 1; last <= 320; ++last)
            EXPECT_GE(scaler.rowsShowing({0, last}).last * 320, last * size.height);
        for (int y = 0; y < size.height; ++y) {
            for (int x = 0; x < size.width; ++x) {
                const int left = x * 240 / size.width, right = ((x + 1) * 240 - 1) / size.width;
                const int top = y * 320 / size.height, bottom = ((y + 1) * 320 - 1) / size.height;
                const std::uint32_t is = *(picture.data() + std::ptrdiff_t{y} * size.width + x);
                const auto green = [&](int column, int row) {
                    return static_cast<int>(common::toXrgb8888(rowOf(frame, row)[column]) >> 8 & 0xFF);
                };
                const auto [least, most] = std::minmax(
                    {green(left, top), green(right, top), green(left, bottom), green(right, bottom)});
                if (left == right && top == bottom) {
                    ASSERT_EQ(is, common::toXrgb8888(rowOf(frame, top)[left]))
                        << size.width << ": " << x << ", " << y;
                }
                ASSERT_TRUE(static_cast<int>(is >> 8 & 0xFF) >= least - 2 &&
                            static_cast<int>(is >> 8 & 0xFF) <= most)
                    << size.width << ": " << x << ", " << y;
            }
        }
    }
}

TEST(ScreenLayout, IsAWholeMultipleWhereThatFillsNineTenths)
{
    EXPECT_EQ(layOut({500, 2000}), (ScreenLayout{10, 680, 480, 640}));
    EXPECT_EQ(layOut({2000, 1067}), (ScreenLayout{640, 53, 720, 960}));
    EXPECT_EQ(layOut({2000, 1068}), (ScreenLayout{599, 0, 801, 1068})) << "three times is less than that";
    EXPECT_EQ(layOut({1920, 1080}), (ScreenLayout{555, 0, 810, 1080}));
    EXPECT_EQ(layOut({100, 140}), (ScreenLayout{0, 3, 100, 133}));
    EXPECT_EQ(layOut({1, 9}), (ScreenLayout{0, 4, 1, 1}));
}

TEST(ScreenLayout, FindsTheOutermostPixelsInAWindowOfAnySize)
{
    for (int width = 1; width < 1300; width += 7) {
        for (int height = 1; height < 1700; height += 11) {
            const WindowSize window{{width, height}, {width, height}};
            const ScreenLayout layout = layOut(window.pixels);
            const int right = layout.left + layout.width, bottom = layout.top + layout.height;
            ASSERT_TRUE(layout.left >= 0 && layout.top >= 0 && right <= width && bottom <= height);
            ASSERT_FALSE(isOnScreen(toScreen(window, {layout.left - 1, layout.top})))
                << width << " x " << height;
            ASSERT_FALSE(isOnScreen(toScreen(window, {right, bottom - 1}))) << width << " x " << height;
            const Point last = toScreen(window, {right - 1, bottom - 1});
            ASSERT_TRUE(isOnScreen(last)) << width << " x " << height;
            if (layout.width >= 240) {
                ASSERT_EQ(last, (Point{239, 319})) << width << " x " << height;
            }
        }
    }
}

} // namespace
} // namespace platform
