// Shapes the asteroids: writes each as a mesh for the renderer, with craters cut into the surface.
#include <array>
#include <fstream>
#include <map>
#include <utility>

#include "art/noise.h"
#include "art/picture.h"

using namespace art;

namespace
{

struct Mesh {
    std::vector<Vec> points;
    std::vector<std::array<int, 3>> faces;
};

/// A sphere of equal triangles, four times as many for every level.
Mesh ball(int levels)
{
    const double g = (1 + std::sqrt(5.0)) / 2;
    Mesh m;
    m.points = {{-1, g, 0},  {1, g, 0},  {-1, -g, 0}, {1, -g, 0}, {0, -1, g},  {0, 1, g},
                {0, -1, -g}, {0, 1, -g}, {g, 0, -1},  {g, 0, 1},  {-g, 0, -1}, {-g, 0, 1}};
    for (Vec &p : m.points)
        p = unit(p);
    m.faces = {{0, 11, 5},  {0, 5, 1},  {0, 1, 7},  {0, 7, 10}, {0, 10, 11}, {1, 5, 9}, {5, 11, 4},
               {11, 10, 2}, {10, 7, 6}, {7, 1, 8},  {3, 9, 4},  {3, 4, 2},   {3, 2, 6}, {3, 6, 8},
               {3, 8, 9},   {4, 9, 5},  {2, 4, 11}, {6, 2, 10}, {8, 6, 7},   {9, 8, 1}};
    for (int level = 0; level < levels; ++level) {
        std::map<std::pair<int, int>, int> halves;
        const auto half = [&](int a, int b) {
            const auto [found, isNew] =
                halves.try_emplace(std::minmax(a, b), static_cast<int>(m.points.size()));
            if (isNew)
                m.points.push_back(unit(m.points[a] + m.points[b]));
            return found->second;
        };
        std::vector<std::array<int, 3>> finer;
        for (const auto &[a, b, c] : m.faces) {
            const int ab = half(a, b), bc = half(b, c), ca = half(c, a);
            finer.insert(finer.end(), {{a, ab, ca}, {b, bc, ab}, {c, ca, bc}, {ab, bc, ca}});
        }
        m.faces = std::move(finer);
    }
    return m;
}

struct Crater {
    Vec way;      // from the middle of the rock
    double width; // radius of the bowl on the unit sphere
    double depth;
};

struct Rock {
    std::uint32_t seed;
    Vec stretch;         // the body's half axes
    double lumps, grain; // strength of large and of small unevenness
    int planes;          // faces knocked off flat
    double planeDistance;
    double waist;              // how far a belt around the middle is drawn in
    std::vector<Crater> large; // the craters that give the rock its face
    int small;                 // how many more are strewn over it
};

const Rock kRocks[] = {
    // A round old body, pitted all over.
    {11,
     {1.00, 0.92, 0.95},
     0.16,
     0.012,
     0,
     1,
     0,
     {{{0.5, 0.5, -0.7}, 0.50, 0.24},
      {{-0.8, -0.2, -0.5}, 0.42, 0.20},
      {{0.2, -0.8, 0.5}, 0.46, 0.22},
      {{-0.3, 0.6, 0.75}, 0.44, 0.20},
      {{0.95, -0.2, 0.3}, 0.36, 0.18},
      {{-0.9, 0.45, 0.1}, 0.28, 0.14},
      {{0.3, -0.5, -0.85}, 0.30, 0.15}},
     5},
    // Two bodies grown together.
    {23,
     {1.34, 0.74, 0.76},
     0.14,
     0.045,
     0,
     1,
     0.36,
     {{{0.9, 0.3, -0.3}, 0.30, 0.15},
      {{-0.85, 0.1, -0.5}, 0.34, 0.17},
      {{-0.8, -0.3, 0.5}, 0.30, 0.14},
      {{0.8, -0.4, 0.4}, 0.32, 0.15}},
     8},
    // A splinter with flat, broken faces.
    {37, {1.16, 1.00, 0.80}, 0.04, 0.014, 11, 0.66, 0, {{{-0.5, -0.6, 0.6}, 0.26, 0.11}}, 0},
    // A flat stone with one blow that nearly broke it.
    {53,
     {1.08, 0.98, 0.78},
     0.13,
     0.022,
     3,
     0.86,
     0,
     {{{0.35, 0.35, -0.87}, 0.74, 0.40}, {{-0.7, -0.5, 0.5}, 0.50, 0.22}, {{0.6, -0.75, 0.2}, 0.34, 0.16}},
     1},
};

Vec scattered(std::uint32_t seed, std::uint32_t i)
{
    const double z = 2 * chance(seed, i, 1) - 1, a = 6.2831853 * chance(seed, i, 2), r = std::sqrt(1 - z * z);
    return {r * std::cos(a), r * std::sin(a), z};
}

/// A bowl with a raised rim; `d` is the distance from its middle in bowl radii.
double bowl(double d)
{
    if (d > 1.6)
        return 0;
    const double floor = d < 1 ? d * d - 1 : 0;
    const double rim = 0.34 * std::exp(-(d - 1.03) * (d - 1.03) / 0.035);
    return std::max(floor, -0.82) + rim;
}

double heightAt(const Rock &rock, const std::vector<Crater> &craters, Vec way)
{
    const Vec offset{rock.seed * 1.7, rock.seed * 0.6, rock.seed * 2.3};
    double h = 1 / length(Vec{way.x / rock.stretch.x, way.y / rock.stretch.y, way.z / rock.stretch.z});
    h *= 1 - rock.waist * std::exp(-(way.x - 0.08) * (way.x - 0.08) / 0.09);
    h += rock.lumps * fractal(way * 1.5 + offset, 3);
    for (int i = 0; i < rock.planes; ++i) {
        const double facing = dot(way, scattered(rock.seed + 900, static_cast<std::uint32_t>(i)));
        const double distance =
            rock.planeDistance * (0.9 + 0.25 * chance(rock.seed, 77, static_cast<std::uint32_t>(i)));
        if (facing > 0.05)
            h = std::min(h, distance / facing);
    }
    for (const Crater &c : craters)
        h += c.depth * bowl(length(way - unit(c.way)) / c.width);
    return h + rock.grain * (fractal(way * 6 + offset, 4) + 0.8 * ridged(way * 4 + offset, 3) - 0.4);
}

void writeRock(const Rock &rock, const std::string &path)
{
    std::vector<Crater> craters = rock.large;
    for (int i = 0; i < rock.small; ++i) {
        const double size = 0.13 + 0.14 * chance(rock.seed, static_cast<std::uint32_t>(i), 3);
        craters.push_back({scattered(rock.seed, static_cast<std::uint32_t>(i)), size, size * 0.32});
    }
    Mesh mesh = ball(6);
    double reach = 0;
    for (Vec &p : mesh.points) {
        p = p * heightAt(rock, craters, p);
        reach = std::max(reach, length(p));
    }
    std::vector<Vec> normals(mesh.points.size());
    for (const auto &[a, b, c] : mesh.faces) {
        const Vec n = cross(mesh.points[b] - mesh.points[a], mesh.points[c] - mesh.points[a]);
        for (int corner : {a, b, c})
            normals[corner] = normals[corner] + n;
    }
    std::ofstream out(path);
    const auto list = [&](const char *name, const std::vector<Vec> &all, double scale) {
        out << name << " { " << all.size();
        for (Vec v : all)
            out << ",<" << v.x * scale << ',' << v.y * scale << ',' << v.z * scale << '>';
        out << " }\n";
    };
    out << "#declare Rock = mesh2 {\n";
    list("vertex_vectors", mesh.points, 1 / reach);
    for (Vec &n : normals)
        n = unit(n);
    list("normal_vectors", normals, 1);
    out << "face_indices { " << mesh.faces.size();
    for (const auto &[a, b, c] : mesh.faces)
        out << ",<" << a << ',' << b << ',' << c << '>';
    out << " }\n}\n";
    if (!out)
        fail("cannot write " + path);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        fail("usage: rocks FOLDER");
    int number = 1;
    for (const Rock &rock : kRocks)
        writeRock(rock, std::string(argv[1]) + "/rock" + std::to_string(number++) + ".inc");
}
