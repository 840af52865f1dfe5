#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "graphics/surface.h"

namespace mygame
{

/// The glyphs of a set of characters, cut from one picture. Copies share the glyphs, and with them the colour
/// key.
///
/// In the picture the glyphs stand side by side in the order of the character set and are marked in row 0, as
/// `MarkedRuns` cuts them.
class BitmapFont
{
public:
    /// Pixels left empty between two glyphs.
    static constexpr std::int32_t kSpacing = 1;

    BitmapFont() = default;
    BitmapFont(const BitmapFont &) = default;
    BitmapFont &operator=(const BitmapFont &) = default;
    virtual ~BitmapFont() = default;

    /// Cuts one glyph for each character from a picture file with a full path. Characters beyond the
    /// picture's last glyph get one of width 0. @return false, without glyphs, when the picture cannot be
    /// loaded.
    bool load(const std::u16string &path, const std::u16string &characters);

    /// Gives up this font's share of the glyphs; texts draw nothing then.
    void release() { glyphs_.reset(); }

    /// Sets the key on every glyph, for all copies.
    void setColourKey(Pixel colour);

    /// Null for a character without a glyph.
    const Surface *glyph(char16_t character) const;

    /// Pixels from the first glyph to the last. Characters without a glyph count with their spacing alone,
    /// and the empty text measures one spacing less than nothing.
    std::int32_t textWidth(const std::u16string &text) const;

private:
    std::shared_ptr<std::map<char16_t, Surface>> glyphs_; ///< Null without glyphs.
};

} // namespace mygame
