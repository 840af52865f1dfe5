/// Small pictures written as text: a letter is a pixel of the letter's code, '_' a black one, '/' ends a row.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "graphics/surface.h"

namespace mygame::tests
{

constexpr Pixel pixelOf(char letter) { return letter == '_' ? kBlack : static_cast<Pixel>(letter); }

inline Surface surfaceOf(std::string_view letters)
{
    const auto width = static_cast<std::int32_t>(letters.find('/'));
    const auto height = static_cast<std::int32_t>(std::ranges::count(letters, '/'));
    EXPECT_EQ(letters.size(), static_cast<std::size_t>((width + 1) * height)) << "rows of unequal length";
    Surface surface;
    surface.create(width, height);
    Pixel *pixel = surface.pixels();
    for (char letter : letters) {
        if (letter != '/')
            *pixel++ = pixelOf(letter);
    }
    return surface;
}

inline std::string lettersOf(const Surface &surface)
{
    std::string letters;
    for (std::int32_t y = 0; y < surface.height(); ++y) {
        for (std::int32_t x = 0; x < surface.width(); ++x) {
            const Pixel pixel = surface.pixelAt(x, y);
            letters += pixel == kBlack ? '_' : static_cast<char>(pixel);
        }
        letters += '/';
    }
    return letters;
}

} // namespace mygame::tests
