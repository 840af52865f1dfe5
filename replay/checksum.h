/// What stands for a picture, and for all pictures of a run so far, in traces and checks.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace replay
{

/// Checksums of pictures that follow each other, mostly with few changes: only the rows that are not as in
/// the picture before are read through.
class PictureChecksum
{
public:
    /// For pictures of this size in pixels, 1 or more each.
    PictureChecksum(std::size_t width, std::size_t height);

    /// CRC-32 of the pixels, each as 2 bytes, low byte first, whatever the host's own order. `pixels` is a
    /// whole picture, row by row.
    std::uint32_t of(std::span<const std::uint16_t> pixels);

private:
    /// What a checksum becomes when a row of zeros follows, for each value of each of its bytes.
    using RowShift = std::array<std::array<std::uint32_t, 256>, 4>;

    static RowShift makeRowShift(std::size_t rowBytes);

    std::size_t width_;
    std::vector<std::uint16_t> pixels_; ///< The picture before.
    std::vector<std::uint32_t> rows_;   ///< The checksum of each of its rows.
    RowShift shift_;
};

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
