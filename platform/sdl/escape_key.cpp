#include "platform/sdl/escape_key.h"

namespace platform
{

bool EscapeKey::press(Clock::time_point now)
{
    const bool isSecond = isAsking(now);
    if (isSecond)
        firstPress_.reset();
    else
        firstPress_ = now;
    return isSecond;
}

} // namespace platform
