// Letters as they are drawn, and the strips and pictures they are put into.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "image.h"

/// One letter: a mask of ink, 0 to 1, and the light that falls on the ink.
struct Letter {
    int width = 0, height = 0;
    std::vector<float> ink, light;

    Letter() = default;
    Letter(int w, int h) : width(w), height(h), ink(std::size_t(w) * h), light(std::size_t(w) * h, 1) {}
    float inkAt(int x, int y) const
    {
        return x < 0 || y < 0 || x >= width || y >= height ? 0 : ink[std::size_t(y) * width + x];
    }
};

using Alphabet = std::map<char, Letter>;

/// Rows of # and . (art/flat/font.txt); letters keep the height of their block.
Alphabet readDots(const std::string &path);

/// Strokes two pixels wide (art/flat/font_big.txt).
Alphabet readStrokes(const std::string &path);
