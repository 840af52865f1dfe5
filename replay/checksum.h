/// What stands for a picture, and for all pictures of a run so far, in traces and checks.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace replay
{

/// CRC-32 of the pixels, each as 2 bytes, low byte first, whatever the host's own order.
std::uint32_t pictureChecksum(std::span<const std::uint16_t> pixels);

/// CRC-32 of the pictures' checksums from the first frame on, each as 4 bytes, low byte first.
class RunningChecksum
{
public:
    void add(std::uint32_t pictureChecksum);
    std::uint32_t value() const { return value_; }

private:
    std::uint32_t value_ = 0;
};

/// Digits of a checksum in a script or a trace: always so many, 0 to 9 and a to f.
constexpr std::size_t kChecksumDigits = 8;
std::string checksumDigits(std::uint32_t checksum);

} // namespace replay
