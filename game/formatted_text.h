#pragma once

#include <string>

#include "platform/text.h"

namespace mygame
{

/// A text with numbers in it. The format is ASCII, as for `platform::wsprintfW`; the numbers are 32-bit
/// integers.
template <class... Numbers> std::u16string formatted(const char16_t *format, Numbers... numbers)
{
    char16_t text[platform::kMaxFormattedText];
    platform::wsprintfW(text, format, numbers...);
    return text;
}

} // namespace mygame
