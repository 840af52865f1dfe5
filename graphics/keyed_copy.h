/// Copying blocks of pixels with a colour key, the greatest part of a frame's cost.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "graphics/colour.h"

namespace mygame
{

/// A block in two pictures that share no pixels; `width` and `height` are 1 or more. Rows begin
/// `targetWidth` and `sourceWidth` pixels apart.
struct KeyedBlock {
    Pixel *target;
    std::ptrdiff_t targetWidth;
    const Pixel *source;
    std::ptrdiff_t sourceWidth;
    std::int32_t width;
    std::int32_t height;
    Pixel key; ///< Pixels of this value are left out.
};

/// Blocks from this width on gain more from wide registers than a call takes.
constexpr std::int32_t kWideBlock = 16;

/// Copies a block of `kWideBlock` or more pixels across. The build chooses among the files that define it.
void copyWideKeyed(const KeyedBlock &block);

/// Copies a row of kCount pixels. Pixels are compared and chosen kLanes at once; left to itself the compiler
/// would go one by one.
template <std::int32_t kLanes, std::int32_t kCount>
inline void copyRowKeyed(Pixel *__restrict to, const Pixel *__restrict from, Pixel key)
{
    using Lanes __attribute__((vector_size(kLanes * sizeof(Pixel)))) = Pixel;
    if constexpr (kCount % kLanes == 0) {
        const Lanes keys = Lanes{} + key;
        for (std::int32_t x = 0; x < kCount; x += kLanes) {
            Lanes below, above;
            std::memcpy(&below, to + x, sizeof below);
            std::memcpy(&above, from + x, sizeof above);
            below = above == keys ? below : above;
            std::memcpy(to + x, &below, sizeof below);
        }
    } else {
        for (std::int32_t x = 0; x < kCount; ++x)
            to[x] = from[x] == key ? to[x] : from[x];
    }
}

/// Copies a block column by column, in the first of these widths that fits. What is left at its right edge is
/// part of a column that overlaps the one before: copying a pixel twice changes nothing.
template <std::int32_t kLanes, std::int32_t kColumn, std::int32_t... kNarrower>
inline void copyInColumns(const KeyedBlock &block)
{
    if constexpr (sizeof...(kNarrower) > 0) {
        if (block.width < kColumn) {
            copyInColumns<kLanes, kNarrower...>(block);
            return;
        }
    }
    // A copy of its own: what is written through `to` could be one of the block's numbers, as far as the
    // compiler knows.
    const KeyedBlock b = block;
    for (std::int32_t start = 0; start < b.width; start += kColumn) {
        const std::int32_t left = std::min(start, b.width - kColumn);
        Pixel *to = b.target + left;
        const Pixel *from = b.source + left;
        for (std::int32_t y = 0; y < b.height; ++y, to += b.targetWidth, from += b.sourceWidth)
            copyRowKeyed<kLanes, kColumn>(to, from, b.key);
    }
}

} // namespace mygame
