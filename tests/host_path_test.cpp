#include "platform/common/host_path.h"

#include <gtest/gtest.h>

#include "platform/common/program_path.h"

namespace platform::common
{
namespace
{

TEST(HostPath, PartsFoldersByBackslashes)
{
    EXPECT_EQ(toDevicePath("/My Games/\u00e4\u20ac\U0001F680"), u"\\My Games\\\u00e4\u20ac\U0001F680");
    EXPECT_EQ(toHostPath(u"a\xD83D\xDFFF\xD800"), "a\U0001F7FF?") << "a surrogate that stands for nothing";
}

TEST(HostPath, ComesBackUnchangedWhateverItsBytes)
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

TEST(ProgramPath, IsCutToTheBufferAndSaysSo)
{
    char16_t buffer[] = u"######";
    EXPECT_EQ(copyPath(u"\\abc", buffer, 5), 4u);
    EXPECT_EQ(std::u16string(buffer, 6), std::u16string(u"\\abc\0#", 6));
    EXPECT_EQ(copyPath(u"\\xyz", buffer, 4), 4u);
    EXPECT_EQ(std::u16string(buffer, 6), std::u16string(u"\\xy\0\0#", 6));
}

} // namespace
} // namespace platform::common
