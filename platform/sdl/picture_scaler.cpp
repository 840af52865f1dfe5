#include "platform/sdl/picture_scaler.h"

#include <algorithm>

#include "platform/sdl/pixel_conversion.h"
#include "platform/sdl/row_copy.h"

namespace platform
{
namespace
{

constexpr std::uint16_t kWhole = 256; ///< Of a pixel, in shares.
constexpr std::size_t kPixelBytes = sizeof(std::uint32_t);
/// Pixels that are written at once.
constexpr std::size_t kBlock = 4;
constexpr std::size_t kEdges = kScreenSize.width - 1;

/// Everything fits into 16 bits, and the compiler mixes many bytes at once.
std::uint8_t mixed(std::uint8_t one, std::uint8_t next, std::uint16_t nextShare)
{
    const auto ownShare = static_cast<std::uint16_t>(kWhole - nextShare);
    const auto sum = static_cast<std::uint16_t>(one * ownShare + next * nextShare);
    return static_cast<std::uint8_t>(sum / kWhole);
}

/// Mixes rows of the picture, byte by byte.
void mixRows(const std::uint32_t *one, const std::uint32_t *next, std::uint16_t nextShare, std::size_t width,
             std::uint32_t *target)
{
    const auto *__restrict a = reinterpret_cast<const std::uint8_t *>(one);
    const auto *__restrict b = reinterpret_cast<const std::uint8_t *>(next);
    auto *__restrict to = reinterpret_cast<std::uint8_t *>(target);
    for (std::size_t i = 0; i < width * kPixelBytes; ++i)
        to[i] = mixed(a[i], b[i], nextShare);
}

/// Mixes bytes of a row each with the same one of the next pixel.
void mixEdges(const std::uint8_t *__restrict row, const std::uint16_t *__restrict nextShares,
              std::uint8_t *__restrict target)
{
    for (std::size_t i = 0; i < kEdges * kPixelBytes; ++i)
        target[i] = mixed(row[i], row[i + kPixelBytes], nextShares[i]);
}

} // namespace

void PictureScaler::resize(Size picture)
{
    if (picture.width == size_.width && picture.height == size_.height)
        return;
    size_ = picture;
    rows_ = samples(kScreenSize.height, picture.height);
    starts_.clear();
    edges_.clear();
    edgeShares_.assign(kEdges * kPixelBytes, 0);
    colours_.resize(kScreenSize.width);
    mixtures_.resize(kEdges);
    const std::vector<Sample> columns = samples(kScreenSize.width, picture.width);
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const auto pixel = static_cast<std::size_t>(columns[column].pixel);
        if (pixel == starts_.size())
            starts_.push_back(column);
        if (columns[column].nextShare == 0)
            continue;
        edges_.push_back({column, pixel});
        std::fill_n(edgeShares_.begin() + static_cast<std::ptrdiff_t>(pixel * kPixelBytes), kPixelBytes,
                    columns[column].nextShare);
    }
    starts_.push_back(columns.size());
    for (WideRow &row : recent_)
        row.pixels.resize(columns.size() + kBlock);
    mixed_.resize(columns.size());
}

std::vector<PictureScaler::Sample> PictureScaler::samples(int screenLength, int pictureLength)
{
    std::vector<Sample> samples;
    for (int i = 0; i < pictureLength; ++i) {
        // In units of one picture pixel's screenLength-th part, a screen pixel is pictureLength long.
        const int start = i * screenLength;
        const int pixel = start / pictureLength;
        const int beyondEdge = start + screenLength - (pixel + 1) * pictureLength;
        const int share = beyondEdge > 0 ? beyondEdge * kWhole / screenLength : 0;
        samples.push_back({pixel, static_cast<std::uint16_t>(share)});
    }
    return samples;
}

RowSpan PictureScaler::rowsShowing(RowSpan screenRows) const
{
    const auto firstOf = [this](int row) { return row * size_.height / kScreenSize.height; };
    const int last = (screenRows.last * size_.height + kScreenSize.height - 1) / kScreenSize.height;
    return {firstOf(screenRows.first), last};
}

void PictureScaler::draw(const Frame &frame, RowSpan pictureRows, std::byte *target, std::ptrdiff_t pitch)
{
    for (WideRow &row : recent_)
        row.row = -1;
    const auto width = static_cast<std::size_t>(size_.width);
    for (int y = pictureRows.first; y < pictureRows.last; ++y, target += pitch) {
        const Sample sample = rows_[static_cast<std::size_t>(y)];
        const std::uint32_t *one = widened(frame, sample.pixel);
        if (sample.nextShare != 0) {
            mixRows(one, widened(frame, sample.pixel + 1), sample.nextShare, width, mixed_.data());
            one = mixed_.data();
        }
        copyRow(one, width, target);
    }
}

const std::uint32_t *PictureScaler::widened(const Frame &frame, int row)
{
    WideRow &wide = recent_[row % 2];
    if (wide.row != row) {
        wide.row = row;
        widen(rowOf(frame, row), wide.pixels.data());
    }
    return wide.pixels.data();
}

void PictureScaler::widen(const std::uint16_t *row, std::uint32_t *target)
{
    convertRow(row, kScreenSize.width, 1, reinterpret_cast<std::byte *>(colours_.data()), 0);
    mixEdges(reinterpret_cast<const std::uint8_t *>(colours_.data()), edgeShares_.data(),
             reinterpret_cast<std::uint8_t *>(mixtures_.data()));
    // In blocks, each of which overwrites what the one before was too long.
    for (std::size_t x = 0; x < colours_.size(); ++x) {
        for (std::size_t column = starts_[x]; column < starts_[x + 1]; column += kBlock)
            std::fill_n(target + column, kBlock, colours_[x]);
    }
    for (const auto &[pictureColumn, screenColumn] : edges_)
        target[pictureColumn] = mixtures_[screenColumn];
}

} // namespace platform
