// Letters a word onto a picture that is finished but for it.
//
// letter PICTURE.PNG LETTERS.TXT WORD CENTRE-X TOP #TOP-COLOUR #FOOT-COLOUR #SHADOW
//
// The shadow falls one pixel to the right and down, away from the sun.

#include <cstdlib>
#include <cstring>

#include "glyphs.h"

namespace
{

constexpr int kGap = 2, kSpace = 3;

int widthOf(const std::string &word, const Alphabet &alphabet)
{
    int width = -kGap;
    for (char c : word)
        width += (c == ' ' ? kSpace : alphabet.at(c).width) + kGap;
    return width;
}

void put(Image &picture, const Letter &letter, int left, int top, Colour from, Colour to)
{
    for (int y = 0; y < letter.height; ++y)
        for (int x = 0; x < letter.width; ++x)
            if (letter.inkAt(x, y) > 0.5f && picture.contains(left + x, top + y))
                picture.at(left + x, top + y) = mix(from, to, float(y) / (letter.height - 1));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 9)
        fail("usage: letter PICTURE.PNG LETTERS.TXT WORD CENTRE-X TOP #TOP #FOOT #SHADOW");
    Image picture = readPng(argv[1]);
    const Alphabet alphabet = readDots(argv[2]);
    const std::string word = argv[3];
    for (char c : word)
        if (c != ' ' && alphabet.find(c) == alphabet.end())
            fail(std::string("no letter drawn for ") + c);
    const int left = std::atoi(argv[4]) - widthOf(word, alphabet) / 2, top = std::atoi(argv[5]);
    for (int layer = 1; layer >= 0; --layer) {
        int x = left;
        for (char c : word) {
            if (c == ' ') {
                x += kSpace + kGap;
                continue;
            }
            const Letter &letter = alphabet.at(c);
            if (layer)
                put(picture, letter, x + 1, top + 1, hex(argv[8]), hex(argv[8]));
            else
                put(picture, letter, x, top, hex(argv[6]), hex(argv[7]));
            x += letter.width + kGap;
        }
    }
    writePng(picture, argv[1]);
}
