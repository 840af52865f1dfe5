#pragma once

#include <cstdint>

namespace mygame
{

/// Writes a text unchanged to "log.txt" in the current folder, which the first write of the process empties.
/// Dropped when the file cannot be opened; the next write tries again.
void logText(const char *text);

/// Writes a number in decimal.
void logNumber(std::int32_t value);

/// Writes all lines so far to the file: a session that ends does not wait for the program.
void flushLog();

/// Closes the file, so that everything written is in it. A write after that would start it anew.
void closeLog();

} // namespace mygame
