// Letters as they are drawn, and the strips and pictures they are put into.
#pragma once

#include <map>
#include <string>

#include "art/flat/drawing.h"

namespace art
{

struct Dot {
    float ink = 0;   // 0 to 1
    float light = 1; // what falls on the ink, -1 to 1
};

using Letter = Grid<Dot>;

/// Letters by their character.
using Alphabet = std::map<char, Letter>;

/// Rows of # and . (font.txt); letters keep the height of their block.
Alphabet readDots(const std::string &path);

/// Strokes two units wide (font_big.txt), `scale` pixels for a unit.
Alphabet readStrokes(const std::string &path, int scale = 1);

/// Ends the program when there is none.
const Letter &letterOf(const Alphabet &alphabet, char c);

} // namespace art
