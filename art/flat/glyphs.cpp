#include "art/flat/glyphs.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <vector>

namespace art
{

namespace
{

struct Point {
    float x = 0, y = 0, radius = 0;
};

using Path = std::vector<Point>;

std::vector<std::string> words(const std::string &line)
{
    std::istringstream in(line);
    std::vector<std::string> result;
    for (std::string word; in >> word;)
        result.push_back(word);
    return result;
}

/// The file's lines in blocks parted by blank lines, without the comments.
std::vector<std::vector<std::string>> readBlocks(const std::string &path)
{
    std::ifstream in(path);
    if (!in)
        fail(path + ": cannot be read");
    std::vector<std::vector<std::string>> blocks(1);
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("// ", 0) == 0)
            continue;
        if (!words(line).empty())
            blocks.back().push_back(line);
        else if (!blocks.back().empty())
            blocks.emplace_back();
    }
    if (blocks.back().empty())
        blocks.pop_back();
    return blocks;
}

/// Replaces each corner that has a radius by short pieces of an arc.
Path rounded(const Path &path, bool closed)
{
    Path result;
    const int n = int(path.size());
    for (int i = 0; i < n; ++i) {
        const Point p = path[i];
        if (p.radius <= 0 || (!closed && (i == 0 || i == n - 1))) {
            result.push_back(p);
            continue;
        }
        const Point a = path[(i + n - 1) % n], b = path[(i + 1) % n];
        const float la = std::hypot(a.x - p.x, a.y - p.y), lb = std::hypot(b.x - p.x, b.y - p.y);
        const float ax = (a.x - p.x) / la, ay = (a.y - p.y) / la, bx = (b.x - p.x) / lb,
                    by = (b.y - p.y) / lb;
        const float half = std::acos(std::clamp(ax * bx + ay * by, -1.0f, 1.0f)) / 2;
        const float cut = std::min({p.radius / std::tan(half), la / 2 + 0.01f, lb / 2 + 0.01f});
        const float radius = cut * std::tan(half), away = radius / std::sin(half);
        const float mx = ax + bx, my = ay + by, lm = std::hypot(mx, my);
        const float cx = p.x + mx / lm * away, cy = p.y + my / lm * away;
        const float from = std::atan2(p.y + ay * cut - cy, p.x + ax * cut - cx);
        float turn = std::atan2(p.y + by * cut - cy, p.x + bx * cut - cx) - from;
        turn -= 2 * float(M_PI) * std::round(turn / (2 * float(M_PI)));
        for (int k = 0; k <= 12; ++k) {
            const float angle = from + turn * float(k) / 12;
            result.push_back({cx + radius * std::cos(angle), cy + radius * std::sin(angle), 0});
        }
    }
    if (closed)
        result.push_back(result.front());
    return result;
}

/// Where a stroke lies at a sample point: its offset from the middle line, or nothing.
bool onStroke(const Path &path, bool closed, float x, float y, float &dx, float &dy)
{
    bool hit = false;
    float best = 1.0f;
    const int n = int(path.size());
    for (int i = 0; i + 1 < n; ++i) {
        const Point a = path[i], b = path[i + 1];
        const float ux = b.x - a.x, uy = b.y - a.y, length = std::hypot(ux, uy);
        if (length < 1e-4f)
            continue;
        const float along = ((x - a.x) * ux + (y - a.y) * uy) / length;
        const bool endsHere = !closed && (i + 2 == n || i == 0);
        const float t = std::clamp(along, 0.0f, length);
        if (endsHere && ((i == 0 && along < 0) || (i + 2 == n && along > length)))
            continue;
        const float ox = x - a.x - ux / length * t, oy = y - a.y - uy / length * t;
        if (std::hypot(ox, oy) <= best) {
            best = std::hypot(ox, oy);
            dx = ox;
            dy = oy;
            hit = true;
        }
    }
    return hit;
}

struct Stroke {
    Path path;
    bool closed = false;
};

Stroke parseStroke(const std::string &line)
{
    Stroke stroke;
    Path corners;
    for (const std::string &word : words(line)) {
        Point p;
        if (word == "o")
            stroke.closed = true;
        else if (std::sscanf(word.c_str(), "%f,%f:%f", &p.x, &p.y, &p.radius) >= 2)
            corners.push_back(p);
        else
            fail("not a point: " + word);
    }
    stroke.path = rounded(corners, stroke.closed);
    return stroke;
}

constexpr int kSamples = 8; // a unit of the font and direction
constexpr int kStrokeRows = 16;

/// Ink and light of one of `scale` pixels a unit: the strokes are tubes under a lamp at the upper left.
Dot samplePixel(const std::vector<Stroke> &strokes, int px, int py, int scale)
{
    const int samples = std::max(1, kSamples / scale);
    int hits = 0;
    float sum = 0;
    for (int s = 0; s < samples * samples; ++s) {
        const int column = s % samples, row = s / samples;
        const float x = (float(px) + (float(column) + 0.5f) / float(samples)) / float(scale),
                    y = (float(py) + (float(row) + 0.5f) / float(samples)) / float(scale);
        float best = -1;
        for (const Stroke &stroke : strokes) {
            float dx = 0, dy = 0;
            if (!onStroke(stroke.path, stroke.closed, x, y, dx, dy))
                continue;
            const float up = std::sqrt(std::max(0.0f, 1.2f - dx * dx - dy * dy));
            best = std::max(best, (-0.6f * dx - 0.65f * dy + 0.45f * up) / 1.05f);
        }
        if (best > -1) {
            ++hits;
            sum += best;
        }
    }
    return {float(hits) / float(samples * samples), hits ? sum / float(hits) : 0};
}

} // namespace

Alphabet readDots(const std::string &path)
{
    Alphabet alphabet;
    for (const auto &block : readBlocks(path)) {
        const std::vector<std::string> names = words(block[0]);
        for (std::size_t i = 0; i < names.size(); ++i) {
            const int rows = int(block.size()) - 1;
            const std::string first = words(block[1]).at(i);
            Letter letter(int(first.size()), rows);
            for (int y = 0; y < rows; ++y) {
                const std::vector<std::string> row = words(block[y + 1]);
                if (row.size() != names.size() || row[i].size() != first.size())
                    fail(path + ": uneven rows under \"" + block[0] + "\"");
                for (int x = 0; x < letter.width; ++x)
                    letter.at(x, y).ink = row[i][x] == '#';
            }
            if (names[i].size() != 1 || !alphabet.emplace(names[i][0], letter).second)
                fail(path + ": " + names[i] + " is not one new character");
        }
    }
    return alphabet;
}

Alphabet readStrokes(const std::string &path, int scale)
{
    Alphabet alphabet;
    for (const auto &block : readBlocks(path)) {
        const std::vector<std::string> head = words(block[0]);
        Letter letter(std::stoi(head.at(1)) * scale, kStrokeRows * scale);
        std::vector<Stroke> strokes;
        for (std::size_t i = 1; i < block.size(); ++i)
            strokes.push_back(parseStroke(block[i]));
        for (int y = 0; y < letter.height; ++y)
            for (int x = 0; x < letter.width; ++x)
                letter.at(x, y) = samplePixel(strokes, x, y, scale);
        alphabet[head[0][0]] = letter;
    }
    return alphabet;
}

const Letter &letterOf(const Alphabet &alphabet, char c)
{
    const auto found = alphabet.find(c);
    if (found == alphabet.end())
        fail(std::string("no letter drawn for ") + c);
    return found->second;
}

} // namespace art
