// Letters a word onto a picture that is finished but for it.
//
// letter PICTURE.PNG LETTERS.TXT WORD CENTRE-X TOP #TOP-COLOUR #FOOT-COLOUR #SHADOW
//
// The shadow falls one pixel to the right and down, away from the sun.

#include <cstdlib>
#include <string>

#include "art/flat/glyphs.h"

using namespace art;

namespace
{

constexpr int kGap = 2, kSpace = 3;

int widthOf(const std::string &word, const Alphabet &alphabet)
{
    int width = -kGap;
    for (char c : word)
        width += (c == ' ' ? kSpace : letterOf(alphabet, c).width) + kGap;
    return width;
}

void put(Drawing &picture, const Letter &letter, int left, int top, Colour from, Colour to)
{
    for (int y = 0; y < letter.height; ++y)
        for (int x = 0; x < letter.width; ++x)
            if (letter.at(x, y).ink > 0.5f && picture.contains(left + x, top + y))
                picture.at(left + x, top + y).colour = mix(from, to, float(y) / float(letter.height - 1));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 9)
        fail("usage: letter PICTURE.PNG LETTERS.TXT WORD CENTRE-X TOP #TOP #FOOT #SHADOW");
    Drawing picture = readPixels<float>(argv[1]);
    const Alphabet alphabet = readDots(argv[2]);
    const std::string word = argv[3];
    const int left = std::atoi(argv[4]) - widthOf(word, alphabet) / 2, top = std::atoi(argv[5]);
    for (int layer = 1; layer >= 0; --layer) {
        int x = left;
        for (char c : word) {
            if (c == ' ') {
                x += kSpace + kGap;
                continue;
            }
            const Letter &letter = letterOf(alphabet, c);
            if (layer)
                put(picture, letter, x + 1, top + 1, parseRgb(argv[8]), parseRgb(argv[8]));
            else
                put(picture, letter, x, top, parseRgb(argv[6]), parseRgb(argv[7]));
            x += letter.width + kGap;
        }
    }
    writeDrawing(argv[1], picture);
}
