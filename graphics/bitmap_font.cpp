#include "graphics/bitmap_font.h"

namespace mygame
{
namespace
{

/// Walks over the glyphs of a strip by the marks in its row 0.
class GlyphRuns
{
public:
    explicit GlyphRuns(const Surface &strip) : strip(strip), marker(strip.pixelAt(0, 0)) { findEnd(); }

    std::int32_t start() const { return start_; }
    std::int32_t width() const { return end - start_; }

    void next()
    {
        start_ = end + 1;
        while (start_ < strip.width() && strip.pixelAt(start_, 0) != marker)
            ++start_;
        end = start_;
        findEnd();
    }

private:
    void findEnd()
    {
        while (end < strip.width() && strip.pixelAt(end, 0) == marker)
            ++end;
    }

    const Surface &strip;
    Pixel marker;
    std::int32_t start_ = 0;
    std::int32_t end = 0;
};

} // namespace

BitmapFont::BitmapFont(const BitmapFont &other) { *this = other; }

BitmapFont &BitmapFont::operator=(const BitmapFont &other)
{
    if (this == &other)
        return *this;
    release();
    spacing_ = other.spacing_;
    glyphs = other.glyphs;
    shareCount.join(other.shareCount);
    return *this;
}

BitmapFont::~BitmapFont() { release(); }

bool BitmapFont::load(const std::u16string &path, const std::u16string &characters)
{
    release();
    Surface strip;
    strip.load(path);
    if (strip.width() < 1)
        return false;
    spacing_ = 1;
    GlyphRuns runs(strip);
    for (char16_t character : characters) {
        auto *glyph = new Surface;
        glyph->create(runs.width(), strip.height() - 1);
        strip.blitTo(*glyph, -runs.start(), -1);
        Surface *&place = glyphs[character];
        delete place;
        place = glyph;
        runs.next();
    }
    shareCount.begin();
    return true;
}

void BitmapFont::release()
{
    if (shareCount.leave()) {
        for (auto &[character, glyph] : glyphs)
            delete glyph;
    }
    glyphs.clear();
}

void BitmapFont::setColourKey(Pixel colour)
{
    for (auto &[character, glyph] : glyphs)
        glyph->setColourKey(colour);
}

const Surface *BitmapFont::glyph(char16_t character) const
{
    const auto found = glyphs.find(character);
    return found == glyphs.end() ? nullptr : found->second;
}

std::int32_t BitmapFont::textWidth(const std::u16string &text) const
{
    std::int32_t width = (static_cast<std::int32_t>(text.size()) - 1) * spacing_;
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
            x += image->width() + font.spacing();
        }
    }
}

} // namespace mygame
