#include "platform/image_files.h"

#include "platform/common/bitmap.h"
#include "platform/common/host_path.h"

namespace platform
{

HBITMAP LoadImageFile(const char16_t *path) { return common::loadBitmap(common::toHostPath(path)); }

} // namespace platform
