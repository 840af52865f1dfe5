/// Formatting of 16-bit text.
#pragma once

namespace platform
{

/// The longest text that `wsprintfW` writes, with its terminating zero, in characters.
constexpr int kMaxFormattedText = 1024;

/// Formats like the C runtime's `sprintf`. The format is ASCII and its arguments are integers; `buffer` holds
/// what comes out, at most `kMaxFormattedText` characters. @return the characters written, without the zero.
int wsprintfW(char16_t *buffer, const char16_t *format, ...);

} // namespace platform
