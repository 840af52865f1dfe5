// A picture in memory and its way from and to a PNG file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Colour {
    float r = 0, g = 0, b = 0, a = 1; ///< 0 to 1 each, not multiplied by alpha
};

Colour mix(Colour from, Colour to, float share);

/// "#RRGGBB" as a colour.
Colour hex(const char *text);

struct Image {
    int width = 0, height = 0;
    std::vector<Colour> pixels;

    Image() = default;
    Image(int w, int h, Colour fill = {0, 0, 0, 0}) : width(w), height(h), pixels(std::size_t(w) * h, fill) {}
    Colour &at(int x, int y) { return pixels[std::size_t(y) * width + x]; }
    const Colour &at(int x, int y) const { return pixels[std::size_t(y) * width + x]; }
    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
};

enum class Alpha { Drop, Keep };

/// Both end the program with a line on the error output when the file cannot be had.
Image readPng(const std::string &path);
void writePng(const Image &image, const std::string &path, Alpha alpha = Alpha::Drop);

[[noreturn]] void fail(const std::string &message);
