#pragma once

#include <string>

#include "platform/common/picture.h"
#include "platform/image_files.h"

namespace platform::common
{

/// The picture file as a bitmap that the caller deletes; null when it cannot be decoded.
HBITMAP loadBitmap(const std::string &hostPath);

} // namespace platform::common
