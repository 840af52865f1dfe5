#include "art/flat/drawing.h"

#include <cstdlib>

namespace art
{

Colour parseRgb(const char *text)
{
    return rgb(static_cast<std::uint32_t>(std::strtoul(text + 1, nullptr, 16)));
}

Drawing readDrawing(const std::string &path)
{
    return mapped(readPng(path), [](const Bytes<4> &p) {
        return Paint{{p[0] / 255.0f, p[1] / 255.0f, p[2] / 255.0f}, p[3] / 255.0f};
    });
}

void writeDrawing(const std::string &path, const Drawing &drawing, Alpha alpha)
{
    const auto withoutAlpha = [](const Paint &p) { return bytesOf(p.colour); };
    const auto complete = [](const Paint &p) { return withAlpha(bytesOf(p.colour), byteOf(p.alpha)); };
    if (alpha == Alpha::Drop)
        writePng(path, mapped(drawing, withoutAlpha));
    else
        writePng(path, mapped(drawing, complete));
}

} // namespace art
