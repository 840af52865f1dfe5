#include "platform/sound.h"

#include <filesystem>
#include <system_error>

#include "platform/common/file_path.h"
#include "platform/device.h"

namespace platform
{

BOOL PlaySoundW(const char16_t *path, void *, std::uint32_t)
{
    const std::string file = device().hostFile(path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(common::filePath(file), error))
        return 0;
    device().startSound(file);
    return 1;
}

} // namespace platform
