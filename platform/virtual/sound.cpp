#include "platform/sound.h"

#include <string_view>

#include "platform/common/host_path.h"
#include "platform/virtual/virtual_device.h"

namespace platform
{

BOOL PlaySoundW(const char16_t *path, void *, std::uint32_t)
{
    if (!common::isRegularFile(VirtualDevice::instance().hostPath(path)))
        return 0;
    const std::u16string_view name(path);
    VirtualDevice::instance().sounds.emplace_back(name.substr(name.rfind(u'\\') + 1));
    return 1;
}

} // namespace platform
