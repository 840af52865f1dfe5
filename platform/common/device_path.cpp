#include "platform/common/device_path.h"

#include "platform/common/utf8.h"

namespace platform::common
{
namespace
{

/// First of the 256 surrogates that each stand for one byte which is no text.
constexpr char32_t kByteEscape = 0xDC00;

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
constexpr bool isByteEscape(char16_t unit) { return unit >= kByteEscape && unit < kByteEscape + 0x100; }

} // namespace

std::u16string toDevicePath(std::string_view hostPath)
{
    std::u16string path;
    path.reserve(hostPath.size());
    while (!hostPath.empty()) {
        const Utf8Character next = decodeUtf8(hostPath);
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

} // namespace platform::common
