#pragma once

#include <cstdint>
#include <string_view>

namespace platform::common
{

/// Copies a path and a terminating zero into a buffer of `size` characters, cutting what does not fit.
/// @return the characters copied without the zero, `size` when the path was cut.
std::uint32_t copyPath(std::u16string_view path, char16_t *buffer, std::uint32_t size);

} // namespace platform::common
