#include "platform/sound.h"

namespace platform
{

BOOL PlaySoundW(const char16_t *, void *, std::uint32_t) { return 0; }

} // namespace platform
