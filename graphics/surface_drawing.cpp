#include "graphics/surface.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

#include "graphics/keyed_copy.h"

namespace mygame
{
namespace
{

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
    if (!keyEnabled_) {
        copyWhole(destination, target.width_, source, width_, block.w, block.h);
        return;
    }
    const KeyedBlock keyed{destination, target.width_, source, width_, block.w, block.h, colourKey_};
    if (block.w >= kWideBlock)
        copyWideKeyed(keyed);
    else
        copyInColumns<8, 8, 4, 1>(keyed);
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
