/// UTF-8 and UTF-16, character by character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform::common
{

struct Utf8Character {
    char32_t character;
    std::size_t bytes; ///< 0 when there is no valid character.
};

/// The first character of a text that is not empty.
Utf8Character decodeUtf8(std::string_view text);

/// Appends a character, which must not be a surrogate or beyond Unicode.
void appendUtf8(std::string &text, char32_t character);
void appendUtf16(std::u16string &text, char32_t character);

/// True when every byte belongs to a character.
bool isUtf8(std::string_view text);

} // namespace platform::common
