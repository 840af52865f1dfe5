#include "replay/checksum.h"

#include <array>
#include <bit>
#include <string_view>
#include <vector>

#include <zlib.h>

namespace replay
{
namespace
{

std::uint32_t continued(std::uint32_t checksum, const void *bytes, std::size_t size)
{
    return static_cast<std::uint32_t>(crc32_z(checksum, static_cast<const Bytef *>(bytes), size));
}

} // namespace

std::uint32_t pictureChecksum(std::span<const std::uint16_t> pixels)
{
    if constexpr (std::endian::native == std::endian::little)
        return continued(0, pixels.data(), pixels.size_bytes());
    std::vector<std::uint8_t> bytes;
    bytes.reserve(pixels.size_bytes());
    for (const std::uint16_t pixel : pixels) {
        bytes.push_back(static_cast<std::uint8_t>(pixel));
        bytes.push_back(static_cast<std::uint8_t>(pixel >> 8));
    }
    return continued(0, bytes.data(), bytes.size());
}

void RunningChecksum::add(std::uint32_t pictureChecksum)
{
    std::array<std::uint8_t, 4> bytes;
    for (std::uint8_t &byte : bytes) {
        byte = static_cast<std::uint8_t>(pictureChecksum);
        pictureChecksum >>= 8;
    }
    value_ = continued(value_, bytes.data(), bytes.size());
}

std::string checksumDigits(std::uint32_t checksum)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string digits(kChecksumDigits, '0');
    for (std::size_t i = digits.size(); i-- > 0; checksum >>= 4)
        digits[i] = kDigits[checksum & 0xF];
    return digits;
}

} // namespace replay
