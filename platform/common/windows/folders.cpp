#include "platform/common/folders.h"

#include <cerrno>
#include <direct.h>

namespace platform::common
{

bool makeFolder(const std::string &path) { return _mkdir(path.c_str()) == 0 || errno == EEXIST; }

} // namespace platform::common
