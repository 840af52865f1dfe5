#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "graphics/colour.h"

namespace mygame
{

class BitmapFont;

/// Where a text lies relative to its x.
enum class TextAlign : std::int32_t {
    AlignCentre = 1,
    AlignLeft = 2,
    AlignRight = 3,
};

/// A rectangle of 16-bit pixels, row by row from the top left without gaps: pixel (x, y) is element
/// x + y * width. Copies share their pixels: what is written through one is seen through all.
///
/// Coordinates are signed, x to the right and y downwards; every drawing operation clips to its target, and
/// none fails.
class Surface
{
public:
    Surface() = default;
    Surface(const Surface &) = default;
    Surface &operator=(const Surface &) = default;
    virtual ~Surface() = default;

    /// Gives up the old pixels and makes width * height black ones, unshared, the colour key off.
    /// @return true; false, leaving the surface empty, for a negative size or without memory.
    bool create(std::int32_t width, std::int32_t height);

    /// Replaces the pixels by those of a PNG or JPEG file, packed by `packColour`; the colour key stays as it
    /// is. @return false, leaving the surface empty, when the file cannot be read or decoded.
    bool load(const std::u16string &path);

    /// Gives up this surface's share of the pixels: it is empty then, 0 x 0.
    void release();

    /// Pixels of this value are left out when the surface is drawn into another. Only `create` ends that.
    void setColourKey(Pixel colour);

    /// The pixel at (x, y), 0 outside the surface.
    Pixel pixelAt(std::int32_t x, std::int32_t y) const;

    /// Sets every pixel, the colour key notwithstanding.
    void fill(Pixel colour);

    /// Fills the rectangle with both corners included; nothing when they are out of order.
    void fillRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, Pixel colour);

    /// Draws the one-pixel outline of a rectangle with both corners included, in either order.
    void drawRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, Pixel colour);

    /// Draws this surface into the target, its top-left corner at (x, y). The two must not share pixels.
    void blitTo(Surface &target, std::int32_t x, std::int32_t y) const;

    /// As `blitTo`, but (x, y) is where the middle goes, at (width / 2, height / 2) of this surface.
    void blitCentredTo(Surface &target, std::int32_t x, std::int32_t y) const;

    /// Draws one line of text, the glyphs' top at y. Characters without a glyph are left out.
    void drawText(const BitmapFont &font, const std::u16string &text, std::int32_t x, std::int32_t y,
                  TextAlign align);

    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }
    /// Elements of `pixels`: width * height.
    std::int32_t pixelCount() const { return pixelCount_; }
    /// Null while the surface is empty.
    Pixel *pixels() { return pixels_.get(); }
    const Pixel *pixels() const { return pixels_.get(); }
    /// Has a meaning only while `keyEnabled`.
    Pixel colourKey() const { return colourKey_; }
    bool keyEnabled() const { return keyEnabled_; }

private:
    /// A block of pixels that lies inside both surfaces; nothing to copy when h is below 1.
    struct Block {
        std::int32_t sx, sy, w, h, dx, dy;
    };

    bool allocate(std::int32_t width, std::int32_t height);
    void plotRow(std::int32_t x1, std::int32_t x2, std::int32_t y, Pixel colour);
    void plotColumn(std::int32_t x, std::int32_t y1, std::int32_t y2, Pixel colour);
    void copyBlock(Surface &target, const Block &block) const;

    std::shared_ptr<Pixel[]> pixels_;
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    std::int32_t pixelCount_ = 0;
    Pixel colourKey_ = 0;
    bool keyEnabled_ = false;
};

} // namespace mygame
