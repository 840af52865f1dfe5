#include "platform/text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <string>

namespace platform
{

int wsprintfW(char16_t *buffer, const char16_t *format, ...)
{
    std::string narrowFormat;
    for (const char16_t *unit = format; *unit; ++unit)
        narrowFormat += static_cast<char>(*unit);
    char narrow[kMaxFormattedText] = "";
    std::va_list arguments;
    va_start(arguments, format);
    const int wanted = std::vsnprintf(narrow, sizeof narrow, narrowFormat.c_str(), arguments);
    va_end(arguments);
    const int length = std::clamp(wanted, 0, kMaxFormattedText - 1);
    std::copy_n(narrow, length + 1, buffer);
    return length;
}

} // namespace platform
