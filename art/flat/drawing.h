// What the flat pictures are made of: colours as the screen takes them, and their way from and to a file.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

#include "art/picture.h"

namespace art
{

/// Red, green and blue, 0 to 1 each.
using Colour = Vector<float>;
using Paint = Covered<float>;
using Drawing = Grid<Paint>;

inline Colour rgb(std::uint32_t value) { return screenHex<float>(value); }

/// "#RRGGBB" as a colour.
inline Colour parseRgb(const char *text)
{
    return rgb(static_cast<std::uint32_t>(std::strtoul(text + 1, nullptr, 16)));
}

enum class Alpha { Drop, Keep };

/// Ends the program when the file cannot be written.
inline void writeDrawing(const std::string &path, const Drawing &drawing, Alpha alpha = Alpha::Drop)
{
    const auto opaque = [](const Paint &p) { return bytesOf(p.colour); };
    const auto covered = [](const Paint &p) { return withAlpha(bytesOf(p.colour), byteOf(p.alpha)); };
    if (alpha == Alpha::Drop)
        writePng(path, mapped(drawing, opaque));
    else
        writePng(path, mapped(drawing, covered));
}

} // namespace art
