/// Paths of the host in the device's form, and back.
#pragma once

#include <string>
#include <string_view>

namespace platform::common
{

/// A host path, bytes that are usually UTF-8, in the device's form: UTF-16, folders separated by backslashes.
/// Bytes that are not valid UTF-8, and a backslash in a name, become lone low surrogates (0xDC00 + byte), so
/// every path comes back unchanged from `toHostPath`.
std::u16string toDevicePath(std::string_view hostPath);

/// The inverse. A surrogate that `toDevicePath` does not make becomes a question mark.
std::string toHostPath(std::u16string_view devicePath);

} // namespace platform::common
