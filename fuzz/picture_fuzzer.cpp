/// Bytes as a picture file, and as the pixels of one: loaded, cut into a sprite and a font, drawn everywhere.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include <png.h>
#include <zlib.h>

#include "fuzz/fuzzer.h"
#include "graphics/animated_sprite.h"
#include "graphics/bitmap_font.h"
#include "graphics/image_loading.h"
#include "platform/image_files.h"
#include "platform/virtual/virtual_device.h"

namespace
{

using mygame::Surface;

constexpr std::u16string_view kCharacters = u" ABCab019.";
constexpr std::int32_t kTargetWidth = 24;
constexpr std::int32_t kTargetHeight = 16;
constexpr std::int32_t kFrameTimeMs = 10;

// Of a chunk in a PNG file: length, name, data, checksum.
constexpr std::size_t kSignatureBytes = 8;
constexpr std::size_t kLengthBytes = 4;
constexpr std::size_t kNameBytes = 4;
constexpr std::size_t kChecksumBytes = 4;

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "picture_fuzzer: %s\n", what);
    std::abort();
}

/// A file in memory that the device takes for one of its data files.
class MemoryFile
{
public:
    MemoryFile() : descriptor_(memfd_create("picture", 0))
    {
        require(descriptor_ >= 0, "there are no files in memory");
        device_.dataFolder = "/proc/self/fd";
        platform::useDevice(device_);
    }

    void write(const std::uint8_t *bytes, std::size_t size) const
    {
        require(ftruncate(descriptor_, 0) == 0 &&
                    pwrite(descriptor_, bytes, size, 0) == static_cast<ssize_t>(size),
                "the file cannot be written");
    }

    std::u16string path() const
    {
        const std::string digits = std::to_string(descriptor_);
        return mygame::dataFilePath(std::u16string(digits.begin(), digits.end()));
    }

private:
    platform::VirtualDevice device_;
    int descriptor_;
};

const MemoryFile &file()
{
    static const MemoryFile file;
    return file;
}

/// Where a span of `length` lies against one of `room`: before it, across its edges, inside, behind, and at
/// the ends of what a coordinate can be.
std::vector<std::int32_t> places(std::int32_t length, std::int32_t room)
{
    return {INT32_MIN, -length - 1,   -length,  1 - length, -1,       0,
            room / 2,  room - length, room - 1, room,       room + 1, INT32_MAX};
}

Surface blankTarget()
{
    Surface target;
    target.create(kTargetWidth, kTargetHeight);
    return target;
}

void drawSurface(const Surface &surface)
{
    Surface target = blankTarget();
    for (const std::int32_t y : places(surface.height(), kTargetHeight)) {
        for (const std::int32_t x : places(surface.width(), kTargetWidth)) {
            surface.blitTo(target, x, y);
            surface.blitCentredTo(target, x, y);
        }
    }
}

void drawSprite(const std::u16string &path, const Surface &strip)
{
    mygame::AnimatedSprite sprite;
    require(sprite.load(path, kFrameTimeMs), "a sprite cannot load what a surface can");
    mygame::AnimatedSprite shared = sprite;
    std::int32_t rows = 0;
    for (std::int32_t i = 0; i < sprite.frameCount(); ++i) {
        require(sprite.frame(i).width() == strip.width() - 1, "a frame is not all but a column wide");
        rows += sprite.frame(i).height();
    }
    require(rows >= 1 && rows <= strip.height(), "the frames have none or more rows than the picture");
    shared.setColourKey(strip.pixelAt(1, 0));
    shared.start(0, mygame::AnimatedSprite::kLoopForEver);
    sprite.release();
    Surface target = blankTarget();
    for (std::uint32_t tick = 0; tick < 3 * kFrameTimeMs; tick += kFrameTimeMs) {
        shared.update(tick);
        const std::int32_t height = shared.frame(shared.currentFrame()).height();
        for (const std::int32_t place : places(height, kTargetHeight)) {
            shared.draw(target, place, place);
            shared.drawCentred(target, 0, place);
        }
    }
}

void drawFont(const std::u16string &path, const Surface &strip)
{
    mygame::BitmapFont font;
    require(font.load(path, std::u16string(kCharacters)), "a font cannot load what a surface can");
    std::int32_t columns = 0;
    for (const char16_t character : kCharacters)
        columns += font.glyph(character)->width();
    require(columns >= 1 && columns <= strip.width(),
            "the glyphs have none or more columns than the picture");
    font.setColourKey(strip.pixelAt(0, 1));
    const std::u16string text = u"A?b 01" + std::u16string(kCharacters);
    Surface target = blankTarget();
    for (const std::int32_t place : places(font.textWidth(text), kTargetWidth)) {
        for (const auto align :
             {mygame::TextAlign::AlignLeft, mygame::TextAlign::AlignCentre, mygame::TextAlign::AlignRight})
            target.drawText(font, text, place, 0, align);
    }
}

/// Loads the file and draws what is in it. @return whether it is a picture.
bool drawFile()
{
    const std::u16string path = file().path();
    Surface picture;
    if (!picture.load(path)) {
        require(picture.width() == 0 && picture.height() == 0 && !picture.pixels(),
                "a failed load leaves a picture behind");
        return false;
    }
    drawSurface(picture);
    drawSprite(path, picture);
    drawFont(path, picture);
    return true;
}

/// Paints a picture in which every bit is a pixel; the first byte says how wide it is.
void writePainted(const std::uint8_t *bytes, std::size_t size)
{
    constexpr png_byte kColours[] = {0, 0xFF, 0xFF, 0xFF, 0, 0xFF};
    const std::size_t width = bytes[0] % 64u + 1;
    const std::size_t height = std::clamp<std::size_t>((size - 1) * 8 / width, 1, platform::kMaxPictureSide);
    std::vector<png_byte> pixels(width * height);
    for (std::size_t i = 0; i / 8 + 1 < size && i < pixels.size(); ++i)
        pixels[i] = static_cast<png_byte>(bytes[i / 8 + 1] >> (i % 8) & 1);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB_COLORMAP;
    image.colormap_entries = 2;
    std::vector<std::uint8_t> memory(PNG_IMAGE_PNG_SIZE_MAX(image));
    png_alloc_size_t length = memory.size();
    require(png_image_write_to_memory(&image, memory.data(), &length, 0, pixels.data(), 0, kColours) != 0,
            "the pixels cannot be written");
    file().write(memory.data(), length);
}

std::uint32_t bigEndian(const std::uint8_t *bytes)
{
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           bytes[3];
}

/// Makes the checksums of a PNG file's chunks right, as a wrong one hides everything behind it.
void mendChecksums(std::uint8_t *bytes, std::size_t size)
{
    std::size_t at = kSignatureBytes;
    while (size - at >= kLengthBytes + kNameBytes + kChecksumBytes) {
        const std::size_t length = bigEndian(bytes + at);
        const std::uint8_t *named = bytes + at + kLengthBytes;
        if (length > size - at - kLengthBytes - kNameBytes - kChecksumBytes)
            return;
        const auto checksum = crc32(0, named, static_cast<uInt>(kNameBytes + length));
        at += kLengthBytes + kNameBytes + length;
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes[at++] = static_cast<std::uint8_t>(checksum >> shift);
    }
}

bool isPng(const std::uint8_t *bytes, std::size_t size)
{
    return size >= kSignatureBytes && png_sig_cmp(bytes, 0, kSignatureBytes) == 0;
}

} // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t *bytes, std::size_t size, std::size_t maxSize, unsigned seed)
{
    const std::size_t mutated = LLVMFuzzerMutate(bytes, size, maxSize);
    constexpr unsigned kKeptWrong = 16;
    if (isPng(bytes, mutated) && seed % kKeptWrong != 0)
        mendChecksums(bytes, mutated);
    return mutated;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    file().write(bytes, size);
    if (drawFile() || size == 0)
        return 0;
    writePainted(bytes, size);
    require(drawFile(), "a sound picture cannot be loaded");
    return 0;
}
