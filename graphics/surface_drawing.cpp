#include "graphics/surface.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace mygame
{
namespace
{

/// Pixels that are compared and chosen at once. Every processor with wide registers has them at least this
/// wide; left to itself the compiler would go pixel by pixel.
constexpr std::int32_t kLanes = 8;
using Lanes __attribute__((vector_size(kLanes * sizeof(Pixel)))) = Pixel;

template <std::int32_t kCount> inline void copyKeyed(Pixel *to, const Pixel *from, Pixel key)
{
    if constexpr (kCount % kLanes == 0) {
        for (std::int32_t x = 0; x < kCount; x += kLanes) {
            Lanes below, above;
            std::memcpy(&below, to + x, sizeof below);
            std::memcpy(&above, from + x, sizeof above);
            const auto isKey = above == key;
            below = isKey ? below : above;
            std::memcpy(to + x, &below, sizeof below);
        }
    } else {
        for (std::int32_t x = 0; x < kCount; ++x)
            to[x] = from[x] == key ? to[x] : from[x];
    }
}

/// Copies a block column by column, in the first of these widths that fits. What is left at its right edge is
/// part of a column that overlaps the one before: copying a pixel twice changes nothing.
template <std::int32_t kColumn, std::int32_t... kNarrower>
inline void copyInColumns(Pixel *__restrict target, std::ptrdiff_t targetWidth,
                          const Pixel *__restrict source, std::ptrdiff_t sourceWidth, std::int32_t width,
                          std::int32_t height, Pixel key)
{
    if constexpr (sizeof...(kNarrower) > 0) {
        if (width < kColumn) {
            copyInColumns<kNarrower...>(target, targetWidth, source, sourceWidth, width, height, key);
            return;
        }
    }
    for (std::int32_t start = 0; start < width; start += kColumn) {
        const std::int32_t left = std::min(start, width - kColumn);
        Pixel *to = target + left;
        const Pixel *from = source + left;
        for (std::int32_t y = 0; y < height; ++y, to += targetWidth, from += sourceWidth)
            copyKeyed<kColumn>(to, from, key);
    }
}

void copyWhole(Pixel *target, std::ptrdiff_t targetWidth, const Pixel *source, std::ptrdiff_t sourceWidth,
               std::int32_t width, std::int32_t height)
{
    for (std::int32_t y = 0; y < height; ++y, target += targetWidth, source += sourceWidth)
        std::memcpy(target, source, static_cast<std::size_t>(width) * sizeof(Pixel));
}

} // namespace

void Surface::fill(Pixel colour) { std::fill_n(pixels(), pixelCount_, colour); }

void Surface::fillRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, Pixel colour)
{
    // Kept: what begins exactly at the right or bottom edge goes on, and draws nothing.
    if (x2 < 0 || y2 < 0 || x1 > width_ || y1 > height_)
        return;
    x1 = std::max(x1, 0);
    y1 = std::max(y1, 0);
    x2 = std::min(x2, width_ - 1);
    y2 = std::min(y2, height_ - 1);
    if (x2 < x1)
        return;
    for (std::int32_t y = y1; y <= y2; ++y)
        std::fill_n(pixels() + x1 + y * width_, x2 - x1 + 1, colour);
}

void Surface::drawRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, Pixel colour)
{
    if (x2 < x1)
        std::swap(x1, x2);
    if (y2 < y1)
        std::swap(y1, y2);
    plotRow(x1, x2, y1, colour);
    plotRow(x1, x2, y2, colour);
    plotColumn(x1, y1, y2, colour);
    plotColumn(x2, y1, y2, colour);
}

void Surface::plotRow(std::int32_t x1, std::int32_t x2, std::int32_t y, Pixel colour)
{
    if (y < 0 || y >= height_)
        return;
    const std::int32_t end = std::min(x2, width_ - 1);
    for (std::int32_t x = std::max(x1, 0); x <= end; ++x)
        pixels_[x + y * width_] = colour;
}

void Surface::plotColumn(std::int32_t x, std::int32_t y1, std::int32_t y2, Pixel colour)
{
    if (x < 0 || x >= width_)
        return;
    const std::int32_t end = std::min(y2, height_ - 1);
    for (std::int32_t y = std::max(y1, 0); y <= end; ++y)
        pixels_[x + y * width_] = colour;
}

/// Inline, since calling it would take a fifth of the time of a glyph.
inline void Surface::copyBlock(Surface &target, const Block &block) const
{
    if (block.h < 1 || block.w < 1)
        return;
    const Pixel *source = pixels() + block.sx + block.sy * width_;
    Pixel *destination = target.pixels() + block.dx + block.dy * target.width_;
    if (!keyEnabled_)
        copyWhole(destination, target.width_, source, width_, block.w, block.h);
    else
        copyInColumns<32, 16, 8, 4, 1>(destination, target.width_, source, width_, block.w, block.h,
                                       colourKey_);
}

void Surface::blitTo(Surface &target, std::int32_t x, std::int32_t y) const
{
    Block block{0, 0, width_, height_, x, y};
    if (x < 0) {
        block.sx = -x;
        block.dx = 0;
        block.w = width_ + x;
    }
    if (y < 0) {
        block.sy = -y;
        block.dy = 0;
        block.h = height_ + y;
    }
    // Kept: at exactly the right or bottom edge, or just beyond the left or upper one, a block without pixels
    // is still copied.
    if (x > target.width_ || y > target.height_ || block.w < 0 || block.h < 0)
        return;
    block.w = std::min(block.w, target.width_ - block.dx);
    block.h = std::min(block.h, target.height_ - block.dy);
    copyBlock(target, block);
}

void Surface::blitCentredTo(Surface &target, std::int32_t x, std::int32_t y) const
{
    blitTo(target, x - (width_ >> 1), y - (height_ >> 1));
}

} // namespace mygame
