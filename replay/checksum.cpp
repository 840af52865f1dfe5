#include "replay/checksum.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>

#include <zlib.h>

namespace replay
{
namespace
{

std::uint32_t continued(std::uint32_t checksum, const void *bytes, std::size_t size)
{
    return static_cast<std::uint32_t>(crc32_z(checksum, static_cast<const Bytef *>(bytes), size));
}

std::uint32_t rowChecksum(std::span<const std::uint16_t> pixels)
{
    if constexpr (std::endian::native == std::endian::little)
        return continued(0, pixels.data(), pixels.size_bytes());
    std::uint32_t checksum = 0;
    for (const std::uint16_t pixel : pixels) {
        const std::uint8_t bytes[] = {static_cast<std::uint8_t>(pixel),
                                      static_cast<std::uint8_t>(pixel >> 8)};
        checksum = continued(checksum, bytes, sizeof bytes);
    }
    return checksum;
}

/// Some pixels at once.
using Pixels = std::uint64_t;
constexpr std::size_t kPixels = sizeof(Pixels) / sizeof(std::uint16_t);

Pixels pixelsAt(const std::uint16_t *pixels)
{
    Pixels some = 0;
    std::memcpy(&some, pixels, sizeof some);
    return some;
}

/// Whether two rows are the same. Looks at all of them, since every compiler makes that fast; a browser's
/// `memcmp` goes byte by byte.
bool areEqual(std::span<const std::uint16_t> a, std::span<const std::uint16_t> b)
{
    const std::size_t rest = a.size() % kPixels;
    Pixels differences = 0;
    for (std::size_t i = 0; i < a.size() - rest; i += kPixels)
        differences |= pixelsAt(&a[i]) ^ pixelsAt(&b[i]);
    return differences == 0 && std::equal(a.end() - static_cast<std::ptrdiff_t>(rest), a.end(),
                                          b.end() - static_cast<std::ptrdiff_t>(rest));
}

} // namespace

PictureChecksum::PictureChecksum(std::size_t width, std::size_t height)
    : width_(width), pixels_(width * height),
      rows_(height, rowChecksum(std::span(pixels_).first(width))), // All black at first.
      shift_(makeRowShift(width * sizeof(std::uint16_t)))
{
}

PictureChecksum::RowShift PictureChecksum::makeRowShift(std::size_t rowBytes)
{
    RowShift shift;
    for (unsigned place = 0; place < shift.size(); ++place) {
        for (std::uint32_t byte = 0; byte < shift[place].size(); ++byte) {
            const uLong shifted = crc32_combine(byte << 8 * place, 0, static_cast<z_off_t>(rowBytes));
            shift[place][byte] = static_cast<std::uint32_t>(shifted);
        }
    }
    return shift;
}

std::uint32_t PictureChecksum::of(std::span<const std::uint16_t> pixels)
{
    std::uint32_t checksum = 0;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const auto now = pixels.subspan(row * width_, width_);
        const auto before = std::span(pixels_).subspan(row * width_, width_);
        if (!areEqual(now, before)) {
            std::copy(now.begin(), now.end(), before.begin());
            rows_[row] = rowChecksum(now);
        }
        checksum = shift_[0][checksum & 0xFF] ^ shift_[1][checksum >> 8 & 0xFF] ^
                   shift_[2][checksum >> 16 & 0xFF] ^ shift_[3][checksum >> 24] ^ rows_[row];
    }
    return checksum;
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
