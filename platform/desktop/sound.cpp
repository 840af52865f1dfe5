#include "platform/sound.h"

#include "platform/common/host_path.h"
#include "platform/desktop/desktop_device.h"

namespace platform
{

BOOL PlaySoundW(const char16_t *path, void *, std::uint32_t)
{
    const std::string file = common::toHostPath(path);
    if (!common::isRegularFile(file))
        return 0;
    DesktopDevice::instance().sound.play(file);
    return 1;
}

} // namespace platform
