/// Where the program lies.
#pragma once

#include <cstdint>

namespace platform
{

/// Writes the executable's full path, folders parted by backslashes, into `buffer` of `size` characters.
/// The module must be null. @return the characters written without the terminating zero; `size` when the path
/// did not fit and was cut.
std::uint32_t GetModuleFileNameW(void *module, char16_t *buffer, std::uint32_t size);

} // namespace platform
