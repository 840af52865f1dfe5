#include "platform/image_files.h"

#include "platform/common/bitmap.h"
#include "platform/virtual/virtual_device.h"

namespace platform
{

HBITMAP LoadImageFile(const char16_t *path)
{
    const std::string hostPath = VirtualDevice::instance().hostPath(path);
    return hostPath.empty() ? nullptr : common::loadBitmap(hostPath);
}

} // namespace platform
