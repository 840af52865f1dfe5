#include "platform/virtual/virtual_device.h"

#include <gtest/gtest.h>

namespace platform
{
namespace
{

TEST(VirtualDevice, TellsOfTheForegroundAsTheSystemDoes)
{
    constexpr std::uint32_t kMessages[][2] = {{6, 0}, {8, 0}, {6, 1}, {7, 0}}; // the number, wParam
    VirtualDevice device;
    device.leaveForeground();
    device.enterForeground();
    MSG message;
    for (const auto &[number, wParam] : kMessages) {
        ASSERT_TRUE(device.poll(message));
        EXPECT_EQ(message.message, number);
        EXPECT_EQ(message.wParam, wParam) << number;
        EXPECT_EQ(message.lParam, 0) << number;
    }
    EXPECT_FALSE(device.poll(message));
}

} // namespace
} // namespace platform
