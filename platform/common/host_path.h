/// The host's file system: its paths in the device's form and back, and what is a file. Shared by the devices
/// that run on a POSIX host.
#pragma once

#include <string>
#include <string_view>

namespace platform::common
{

/// True when every byte belongs to a character.
bool isUtf8(std::string_view text);

/// A host path, bytes that are usually UTF-8, in the device's form: UTF-16, folders parted by backslashes.
/// Bytes that are not valid UTF-8, and a backslash in a name, become lone low surrogates (0xDC00 + byte), so
/// every path comes back unchanged from `toHostPath`.
std::u16string toDevicePath(std::string_view hostPath);

/// The inverse. A surrogate that `toDevicePath` does not make becomes a question mark.
std::string toHostPath(std::u16string_view devicePath);

/// False for a folder or a pipe, which could be opened but holds no data, and for what is not there.
bool isRegularFile(const std::string &hostPath);

} // namespace platform::common
