/// The display, the log and the event bus.
#include <cstring>
#include <string>

#include "shell/display.h"
#include "shell/event_bus.h"
#include "tests/support/device_test.h"

namespace mygame::tests
{
namespace
{

constexpr std::uint32_t kWidth = 24, kHeight = 32;

struct DisplayTest : DeviceTest {
    void setLayout(std::int32_t xPitch, std::int32_t yPitch, std::int32_t bits)
    {
        device.frameBuffer.clear();
        device.display = {kWidth, kHeight, xPitch, yPitch, bits, 0x80000080};
    }

    /// Presents a frame in which every pixel differs.
    void present(Display &display)
    {
        ASSERT_TRUE(display.beginDraw());
        Surface &picture = display.backBuffer();
        for (std::int32_t i = 0; i < picture.pixelCount(); ++i)
            picture.pixels()[i] = static_cast<Pixel>(i + 1);
        display.endDraw();
    }

    Pixel shown(std::ptrdiff_t x, std::ptrdiff_t y)
    {
        Pixel pixel = 0;
        const std::byte *place = device.topLeft() + x * device.display.cbxPitch + y * device.display.cbyPitch;
        std::memcpy(&pixel, place, sizeof pixel);
        return pixel;
    }
};

TEST_F(DisplayTest, LogsWhatItFinds)
{
    setLayout(2, 48, 16);
    device.standardDisplay = false;
    const Display display(nullptr);
    EXPECT_EQ(logged(), "Opening display...\nDisplay properties:\nScreen Width:24\nScreen Height: 32\n"
                        "BPP: 16\nFormat: -2147483520\nNonstandard display\n");
}

TEST_F(DisplayTest, WritesEveryLayoutThroughItsPitches)
{
    constexpr std::int32_t kPitches[][2] = {{2, 48}, {2, 100}, {2, -48}, {-2, 48}, {4, 96},
                                            {64, 2}, {-64, 2}, {64, -2}, {-2, -51}};
    for (const auto &[xPitch, yPitch] : kPitches) {
        setLayout(xPitch, yPitch, 16);
        Display display(nullptr);
        EXPECT_EQ(display.backBuffer().pixelAt(0, 0), kBlack);
        present(display);
        for (std::int32_t i = 0; i < 24 * 32; ++i)
            ASSERT_EQ(shown(i % 24, i / 24), i + 1) << xPitch << ", " << yPitch;
    }
}

TEST_F(DisplayTest, WritesNoPixelsOfAnotherSizeAndNoneWhenItCouldNotOpen)
{
    device.displayError = 1;
    Display closed(nullptr);
    device.displayError.reset(); // a frame buffer nevertheless
    present(closed);
    EXPECT_EQ(shown(0, 0), 0);
    for (const std::int32_t bytes : {1, 3, 4}) {
        setLayout(bytes, 24 * bytes, 8 * bytes);
        Display display(nullptr);
        present(display);
        EXPECT_EQ(device.frameBuffer, std::vector<std::byte>(device.frameBuffer.size())) << bytes;
    }
}

TEST_F(DisplayTest, StartsTheLogAnewAndTriesAgainAfterAFailure)
{
    closeLog();
    written("log.txt", "an old and longer log");
    logNumber(INT32_MIN);
    EXPECT_EQ(logged(), "-2147483648");
    std::filesystem::remove("log.txt");
    std::filesystem::create_directory("log.txt");
    logText("dropped");
    std::filesystem::remove("log.txt");
    logText("kept");
    EXPECT_EQ(logged(), "kept");
}

/// Counts events, and may keep them from later listeners.
struct Counter final : EventListener {
    bool onEvent(const Event &) override
    {
        ++count;
        return keeps;
    }

    bool keeps = false;
    int count = 0;
};

TEST(EventBusTest, StopsAtAListenerThatKeepsTheEvent)
{
    EventBus bus;
    Counter early, keeping, late;
    keeping.keeps = true;
    for (Counter *counter : {&early, &keeping, &late})
        bus.subscribe(1, counter);
    bus.post<Event>(1);
    EXPECT_EQ(early.count, 0) << "delivered too early";
    bus.dispatchAll();
    EXPECT_TRUE(early.count == 1 && keeping.count == 1 && late.count == 0);
}

} // namespace
} // namespace mygame::tests
