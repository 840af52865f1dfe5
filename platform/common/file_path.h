#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace platform::common
{

/// A path of the host, in UTF-8, for the standard library: where its own paths are of wide characters, it
/// would take the bytes of a plain string for one character each.
inline std::filesystem::path filePath(std::string_view hostPath)
{
    return std::u8string(hostPath.begin(), hostPath.end());
}

} // namespace platform::common
