#include "shell/log.h"

#include <cinttypes>
#include <cstdio>

namespace mygame
{
namespace
{

constexpr const char *kLogFile = "log.txt";

std::FILE *logFile = nullptr;

} // namespace

void logText(const char *text)
{
    if (!logFile)
        logFile = std::fopen(kLogFile, "w");
    if (logFile)
        std::fputs(text, logFile);
}

void logNumber(std::int32_t value)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "%" PRId32, value);
    logText(digits);
}

void flushLog()
{
    if (logFile)
        std::fflush(logFile);
}

void closeLog()
{
    if (logFile)
        std::fclose(logFile);
    logFile = nullptr;
}

} // namespace mygame
