/// Sound effects.
#pragma once

#include <cstdint>

#include "platform/window.h"

namespace platform
{

constexpr std::uint32_t SND_ASYNC = 0x00000001;
constexpr std::uint32_t SND_FILENAME = 0x00020000;

/// Starts playing a WAV file and returns at once; a sound still playing is cut off. Without a sound device,
/// or without the file, nothing is heard. The module must be null and the flags SND_FILENAME | SND_ASYNC.
/// @return non-zero when the file exists.
BOOL PlaySoundW(const char16_t *path, void *module, std::uint32_t flags);

} // namespace platform
