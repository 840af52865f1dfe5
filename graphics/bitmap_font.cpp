#include "graphics/bitmap_font.h"

#include "graphics/marked_runs.h"

namespace mygame
{

bool BitmapFont::load(const std::u16string &path, const std::u16string &characters)
{
    release();
    Surface strip;
    strip.load(path);
    if (strip.width() < 1)
        return false;
    glyphs_ = std::make_shared<std::map<char16_t, Surface>>();
    MarkedRuns runs(strip, MarkedRuns::Marks::InRow0);
    for (char16_t character : characters) {
        // Kept: characters beyond the last run get a glyph of width 0, which still takes its spacing, and of
        // two equal characters the later run counts.
        (*glyphs_)[character] = runs.cut();
        runs.next();
    }
    return true;
}

void BitmapFont::setColourKey(Pixel colour)
{
    if (!glyphs_)
        return;
    for (auto &[character, glyph] : *glyphs_)
        glyph.setColourKey(colour);
}

const Surface *BitmapFont::glyph(char16_t character) const
{
    if (!glyphs_)
        return nullptr;
    const auto found = glyphs_->find(character);
    return found == glyphs_->end() ? nullptr : &found->second;
}

std::int32_t BitmapFont::textWidth(const std::u16string &text) const
{
    // Kept: a character without a glyph counts with its spacing though none is drawn, and the empty text
    // measures one spacing less than nothing.
    std::int32_t width = (static_cast<std::int32_t>(text.size()) - 1) * kSpacing;
    for (char16_t character : text) {
        if (const Surface *image = glyph(character))
            width += image->width();
    }
    return width;
}

void Surface::drawText(const BitmapFont &font, const std::u16string &text, std::int32_t x, std::int32_t y,
                       TextAlign align)
{
    if (align == TextAlign::AlignCentre)
        x -= font.textWidth(text) / 2;
    else if (align == TextAlign::AlignRight)
        x -= font.textWidth(text);
    for (char16_t character : text) {
        if (const Surface *image = font.glyph(character)) {
            image->blitTo(*this, x, y);
            x += image->width() + BitmapFont::kSpacing;
        }
    }
}

} // namespace mygame
