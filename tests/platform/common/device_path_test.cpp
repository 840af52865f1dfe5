#include "platform/common/device_path.h"

#include <gtest/gtest.h>

namespace platform::common
{
namespace
{

TEST(DevicePath, SeparatesFoldersByBackslashes)
{
    EXPECT_EQ(toDevicePath("/My Games/\u00e4\u20ac\U0001F680"), u"\\My Games\\\u00e4\u20ac\U0001F680");
    EXPECT_EQ(toDevicePath("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80"), u"\x7F\x80\x7FF\x800") << "ends of lengths";
    EXPECT_EQ(toHostPath(u"\x7F\x80\x7FF\x800"), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80");
    EXPECT_EQ(toHostPath(u"a\xD83D\xDFFF\xD800"), "a\U0001F7FF?") << "a surrogate that stands for nothing";
}

TEST(DevicePath, ComesBackUnchangedWhateverItsBytes)
{
    constexpr std::string_view kOdd[] = {
        "a\\b/c\\",                                        // backslashes in names
        "\xC3/\xE2\x82/\xF0\x9F\x98",                      // cut short
        "\xC0\xAF/\xE0\x80\xAF/\xF0\x80\x80\xAF",          // overlong forms of a slash
        "\xED\xA0\x80\xED\xB0\x80/\xED\xB1\x9C",           // surrogates
        "\xF4\x90\x80\x80/\xF5\x80\x80\x80",               // beyond the last character
        "\xF4\x8F\xBF\xBF/\xEF\xBF\xBF/\xEE\x80\x80/\x7F", // ends of ranges
        "\U0001F680\xB0\x80\U0001F680\\\xF0"};
    for (const std::string_view path : kOdd)
        EXPECT_EQ(toHostPath(toDevicePath(path)), path) << testing::PrintToString(path);
    EXPECT_EQ(toDevicePath(std::string_view("\u00e4", 1)), u"\xDCC3") << "reads on behind the end";
}

} // namespace
} // namespace platform::common
