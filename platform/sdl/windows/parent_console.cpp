#include "platform/sdl/windows/parent_console.h"

#include <cstdio>
#include <windows.h>

namespace platform
{
namespace
{

bool goesNowhere(DWORD stream)
{
    HANDLE handle = GetStdHandle(stream);
    return !handle || handle == INVALID_HANDLE_VALUE;
}

void sendToConsole(std::FILE *stream) { static_cast<void>(std::freopen("CONOUT$", "w", stream)); }

} // namespace

void writeToParentConsole()
{
    const bool outputGoesNowhere = goesNowhere(STD_OUTPUT_HANDLE);
    const bool errorsGoNowhere = goesNowhere(STD_ERROR_HANDLE);
    if (!AttachConsole(ATTACH_PARENT_PROCESS))
        return;
    if (outputGoesNowhere)
        sendToConsole(stdout);
    if (errorsGoNowhere)
        sendToConsole(stderr);
}

} // namespace platform
