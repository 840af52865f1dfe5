#include "platform/sound.h"

#include "platform/common/files.h"
#include "platform/device.h"

namespace platform
{

BOOL PlaySoundW(const char16_t *path, void *, std::uint32_t)
{
    const std::string file = device().hostFile(path);
    if (!common::isRegularFile(file))
        return 0;
    device().startSound(file);
    return 1;
}

} // namespace platform
