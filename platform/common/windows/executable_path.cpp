#include "platform/common/executable_path.h"

#include <algorithm>
#include <windows.h>

namespace platform::common
{
namespace
{

/// The longest path that Windows has, in UTF-16 units.
constexpr DWORD kLongestPath = 32768;

std::string toUtf8(const std::wstring &text)
{
    const int units = static_cast<int>(text.size());
    std::string utf8(static_cast<std::size_t>(units) * 3, '\0');
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, utf8.data(),
                                          static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(bytes));
    return utf8;
}

} // namespace

std::string executablePath()
{
    std::wstring path(kLongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
    std::string utf8 = toUtf8(path);
    std::replace(utf8.begin(), utf8.end(), '\\', '/');
    return utf8;
}

} // namespace platform::common
