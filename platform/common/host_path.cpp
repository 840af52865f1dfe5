#include "platform/common/host_path.h"

#include <cstddef>
#include <sys/stat.h>

namespace platform::common
{
namespace
{

/// First of the 256 surrogates that each stand for one byte which is no text.
constexpr char32_t kByteEscape = 0xDC00;

struct Decoded {
    char32_t character;
    std::size_t bytes; ///< 0 when there is no valid character.
};

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

Decoded decodeUtf8(std::string_view text)
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

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
constexpr bool isByteEscape(char16_t unit) { return unit >= kByteEscape && unit < kByteEscape + 0x100; }

} // namespace

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const Decoded next = decodeUtf8(text);
        if (next.bytes == 0)
            return false;
        text.remove_prefix(next.bytes);
    }
    return true;
}

std::u16string toDevicePath(std::string_view hostPath)
{
    std::u16string path;
    path.reserve(hostPath.size());
    while (!hostPath.empty()) {
        const Decoded next = decodeUtf8(hostPath);
        if (next.bytes == 0 || next.character == U'\\')
            path += static_cast<char16_t>(kByteEscape + static_cast<unsigned char>(hostPath[0]));
        else
            appendUtf16(path, next.character == U'/' ? U'\\' : next.character);
        hostPath.remove_prefix(next.bytes == 0 ? 1 : next.bytes);
    }
    return path;
}

std::string toHostPath(std::u16string_view devicePath)
{
    std::string path;
    path.reserve(devicePath.size());
    for (std::size_t i = 0; i < devicePath.size(); ++i) {
        const char16_t unit = devicePath[i];
        if (unit == u'\\') {
            path += '/';
        } else if (isHighSurrogate(unit) && i + 1 < devicePath.size() && isLowSurrogate(devicePath[i + 1])) {
            const char32_t high = unit - char32_t{0xD800};
            appendUtf8(path, 0x10000 + (high << 10) + (devicePath[++i] - char32_t{0xDC00}));
        } else if (isByteEscape(unit)) {
            path += static_cast<char>(unit - kByteEscape);
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            path += '?';
        } else {
            appendUtf8(path, unit);
        }
    }
    return path;
}

bool isRegularFile(const std::string &hostPath)
{
    struct stat status;
    return stat(hostPath.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace platform::common
