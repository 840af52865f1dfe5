#include "platform/common/utf8.h"

namespace platform::common
{
namespace
{

constexpr bool isContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

/// Bytes of the UTF-8 character that a byte begins, 0 when it begins none.
constexpr std::size_t sequenceLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Overlong forms, surrogates and what lies beyond Unicode are not characters.
constexpr bool isCharacter(char32_t value, std::size_t bytes)
{
    constexpr char32_t kLeastOfLength[] = {0, 0, 0x80, 0x800, 0x10000};
    return value >= kLeastOfLength[bytes] && value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

} // namespace

Utf8Character decodeUtf8(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = sequenceLength(lead);
    if (length == 0 || length > text.size())
        return {0, 0};
    char32_t value = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (!isContinuation(byte))
            return {0, 0};
        value = value << 6 | (byte & 0x3Fu);
    }
    if (!isCharacter(value, length))
        return {0, 0};
    return {value, length};
}

void appendUtf16(std::u16string &text, char32_t character)
{
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
}

void appendUtf8(std::string &text, char32_t character)
{
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | character >> 6);
        append(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        append(0xE0 | character >> 12);
        append(0x80 | (character >> 6 & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | character >> 18);
        append(0x80 | (character >> 12 & 0x3F));
        append(0x80 | (character >> 6 & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const Utf8Character next = decodeUtf8(text);
        if (next.bytes == 0)
            return false;
        text.remove_prefix(next.bytes);
    }
    return true;
}

} // namespace platform::common
