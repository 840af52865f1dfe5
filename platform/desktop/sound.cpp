#include "platform/sound.h"

#include <sys/stat.h>

#include "platform/common/host_path.h"
#include "platform/desktop/desktop_device.h"

namespace platform
{

BOOL PlaySoundW(const char16_t *path, void *, std::uint32_t)
{
    const std::string file = common::toHostPath(path);
    struct stat status;
    if (stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return 0;
    DesktopDevice::instance().sound.play(file);
    return 1;
}

} // namespace platform
