#include "platform/common/folders.h"

#include <cerrno>
#include <sys/stat.h>

namespace platform::common
{

bool makeFolder(const std::string &path) { return mkdir(path.c_str(), 0777) == 0 || errno == EEXIST; }

} // namespace platform::common
