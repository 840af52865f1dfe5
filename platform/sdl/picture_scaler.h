#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/sdl/frame.h"

namespace platform
{

/// Enlarges frames by any factor from 1 on and keeps them sharp: a pixel that lies inside the place of one
/// pixel of the screen has its exact colour, and one that lies across an edge is mixed by its share of both
/// sides.
class PictureScaler
{
public:
    /// Prepares for a picture of this size, not smaller than the screen. Cheap when it is the last one again.
    void resize(Size picture);

    /// The rows of the picture that show some of these rows of the screen.
    RowSpan rowsShowing(RowSpan screenRows) const;

    /// Writes rows of the picture as 0xFFRRGGBB, the first one at `target`, rows `pitch` bytes apart.
    void draw(const Frame &frame, RowSpan pictureRows, std::byte *target, std::ptrdiff_t pitch);

private:
    /// What a pixel of the picture shows in one direction: a pixel of the screen, and of the next one a share
    /// in 256ths.
    struct Sample {
        int pixel;
        std::uint16_t nextShare;
    };
    struct Edge {
        std::size_t pictureColumn;
        std::size_t screenColumn;
    };
    /// A row of the screen at the picture's width, and room for the last block of its last pixel.
    struct WideRow {
        int row = -1;
        std::vector<std::uint32_t> pixels;
    };

    static std::vector<Sample> samples(int screenLength, int pictureLength);
    const std::uint32_t *widened(const Frame &frame, int row);
    void widen(const std::uint16_t *row, std::uint32_t *target);

    Size size_{0, 0};
    std::vector<Sample> rows_;
    /// For each column of the screen where it begins in the picture, and where the last one ends.
    std::vector<std::size_t> starts_;
    /// The columns of the picture that lie across an edge, each with the column of the screen before the
    /// edge.
    std::vector<Edge> edges_;
    /// The share of the next pixel in the mixture across each edge of a row, once for each byte of a pixel.
    std::vector<std::uint16_t> edgeShares_;
    std::vector<std::uint32_t> colours_;  ///< A row's pixels,
    std::vector<std::uint32_t> mixtures_; ///< and the mixtures across their edges.
    WideRow recent_[2];                   ///< Of even rows and of odd ones.
    std::vector<std::uint32_t> mixed_;    ///< A row across the edge between two of them.
};

} // namespace platform
