// What the flat pictures are made of: colours as the screen takes them, and their way from and to a file.
#pragma once

#include <cstdint>
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
Colour parseRgb(const char *text);

/// Both end the program when the file cannot be read or written.
Drawing readDrawing(const std::string &path);
enum class Alpha { Drop, Keep };
void writeDrawing(const std::string &path, const Drawing &drawing, Alpha alpha = Alpha::Drop);

} // namespace art
