#include "platform/common/standard_output.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>

namespace platform::common
{

void keepStandardOutputBytes() { _setmode(_fileno(stdout), _O_BINARY); }

} // namespace platform::common
