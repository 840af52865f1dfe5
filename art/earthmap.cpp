// Draws the maps that every scene wraps around the Earth: the surface by day, the lights by night, the clouds
// and the cracks of its last hour. Equirectangular, longitude -180 to 180 from the left, north at the top.
#include <iterator>

#include "art/noise.h"
#include "art/picture.h"

using namespace art;

namespace
{

constexpr int kWidth = 4096;
constexpr int kHeight = 2048;
constexpr double kPi = 3.14159265358979;

struct Point {
    double lon, lat;
};
using Outline = std::vector<Point>;

// Coasts in the rough, drawn by hand; noise bends the lines between the points into coasts.
const std::vector<Outline> kLand = {
    // Africa
    {{-6, 36},   {-2, 35},     {3, 37},       {10, 37.3},    {11, 34},    {15, 32.3},  {20, 31},
     {20, 33},   {25, 31.7},   {30, 31.4},    {32.5, 31},    {34, 28},    {35.5, 24},  {37.3, 20},
     {39, 16},   {43, 12},     {44, 10.5},    {51, 12},      {49, 6},     {46, 2},     {42, -1},
     {39.5, -5}, {40.5, -10},  {40.5, -15},   {36, -19},     {35, -24},   {32.5, -27}, {30, -31},
     {26, -34},  {20, -34.7},  {18.3, -33},   {17, -29},     {14.5, -23}, {12, -17},   {13.5, -12},
     {12.3, -6}, {9, -1},      {9.6, 4},      {6, 4.3},      {4, 6.4},    {-2, 4.9},   {-7.5, 4.4},
     {-11, 6.7}, {-13.5, 9.5}, {-16.8, 12.5}, {-17.4, 14.8}, {-16.2, 19}, {-17, 21.5}, {-14.5, 26},
     {-11, 29},  {-9.7, 31.5}, {-6.8, 34}},
    // Madagascar
    {{49.3, -12},
     {50.4, -15.7},
     {47.5, -24.8},
     {45, -25.4},
     {43.4, -22},
     {44.4, -19.8},
     {44.4, -16.2},
     {47, -15}},
    // Europe and Asia
    {{-9, 37},      {-9.4, 39},    {-8.8, 43.3},  {-1.7, 43.4},  {-1.2, 46},    {-4.5, 48.4},  {-1.5, 48.8},
     {1.6, 50.8},   {4.5, 52.5},   {8, 53.7},     {8.2, 56.8},   {10.5, 57.5},  {10.8, 54.3},  {14, 54},
     {19, 54.4},    {21, 57},      {24, 58.8},    {28, 59.7},    {29, 60.3},    {23, 60},      {21.5, 61.5},
     {25.3, 65},    {22, 65.8},    {17.5, 61.8},  {18.5, 60},    {16.5, 57},    {14.3, 55.5},  {12.8, 55.6},
     {11.3, 58.8},  {8, 58.1},     {5.3, 60},     {5.5, 62},     {10.5, 64},    {14.5, 68},    {20, 70},
     {26, 71},      {31, 70},      {41, 67},      {40, 65},      {35, 64.3},    {38, 64},      {44, 66},
     {44, 68.5},    {54, 68.5},    {60, 69},      {68, 68.5},    {67, 72},      {72.5, 73},    {74, 68},
     {78, 72},      {87, 75},      {98, 76},      {104, 77.6},   {113, 74},     {128, 72.8},   {140, 72.7},
     {160, 70},     {170, 69.7},   {180, 68.9},   {180, 65},     {177.5, 64.6}, {179, 62.4},   {170, 60},
     {163, 58},     {162, 55},     {156.7, 51},   {156, 57},     {163, 62},     {155, 59.3},   {142, 59.3},
     {135.5, 54.7}, {141, 53},     {140, 48},     {135.5, 44},   {131, 42.7},   {127.5, 39.7}, {129.4, 37},
     {129, 35.2},   {126.4, 34.5}, {126.7, 37.5}, {124.7, 39.7}, {121.3, 39},   {121.5, 40.8}, {118, 39},
     {119, 37.2},   {122.4, 37.2}, {119.3, 35},   {121.8, 31.5}, {121.6, 29},   {118.5, 24.6}, {114, 22.3},
     {110.3, 20.4}, {108, 21.6},   {105.8, 19},   {109, 13},     {109, 11.5},   {105, 8.7},    {104.8, 10.4},
     {102, 12.5},   {100.4, 13.4}, {99.3, 10},    {100.3, 7},    {103.4, 4.5},  {104.2, 1.4},  {101, 3},
     {100.2, 6.5},  {98.3, 8},     {98.6, 12},    {97.5, 16.5},  {94.3, 16},    {94.2, 19},    {91.7, 22.4},
     {88, 21.7},    {86.8, 20},    {82.3, 16.6},  {80.2, 15},    {80.2, 11},    {78, 8.2},     {76.3, 10},
     {74.4, 14.5},  {72.8, 19.5},  {72.6, 21.3},  {70.3, 21},    {69, 22.4},    {67, 24.8},    {61.6, 25.1},
     {57, 26.8},    {54, 26.6},    {50.5, 29.8},  {48.3, 30},    {50, 26.5},    {51.5, 25.5},  {51.6, 24.2},
     {54.3, 24.2},  {56.3, 26.2},  {56.8, 24.2},  {59.8, 22.5},  {57.8, 19},    {55, 17.2},    {52, 15.8},
     {45, 12.8},    {43.3, 13},    {42.5, 16.8},  {39.2, 21},    {37.2, 25},    {35, 28},      {34.9, 29.5},
     {33, 30.4},    {34, 31.2},    {35, 32.8},    {36, 36},      {32.3, 36.1},  {30.5, 36.5},  {27.5, 37},
     {26.3, 39.3},  {29, 41},      {31.3, 41.2},  {35, 42},      {38, 41},      {41.5, 41.6},  {39, 44.3},
     {37, 45.3},    {39, 47.2},    {35, 46.2},    {36.4, 45.2},  {33.7, 44.4},  {32.5, 46},    {30.5, 46},
     {28.6, 43.8},  {28, 41.8},    {28.6, 41.4},  {26.2, 40.6},  {23.8, 40.3},  {23, 39},      {24, 37.8},
     {23, 36.5},    {21.7, 36.8},  {21.2, 38.3},  {19.5, 40},    {19.5, 41.8},  {16, 43.5},    {13.7, 45},
     {12.4, 45.3},  {12.4, 44.2},  {14, 42.3},    {16, 41.8},    {18.4, 40},    {16.9, 40.4},  {17, 39},
     {15.8, 38},    {15.6, 40},    {12.3, 41.8},  {10.3, 43.8},  {8.7, 44.4},   {6.5, 43.2},   {3.2, 43.2},
     {3.2, 41.9},   {0.2, 40},     {-0.3, 38.7},  {-2, 36.8},    {-5.5, 36.1}},
    // Chukotka beyond the date line
    {{-180, 68.9}, {-175, 67.3}, {-170, 66}, {-173, 64.4}, {-180, 65}},
    // Islands of Europe
    {{-5.5, 50.1},
     {1.3, 51.2},
     {1.6, 52.8},
     {0.2, 53.2},
     {-1.6, 55.3},
     {-3, 56},
     {-2, 57.6},
     {-4, 57.6},
     {-3.2, 58.6},
     {-5, 58.5},
     {-6, 56.5},
     {-5, 55},
     {-3.1, 54.5},
     {-3, 53.5},
     {-4.6, 53},
     {-4.8, 52},
     {-3, 51.4}},
    {{-6.2, 52.2}, {-10, 51.6}, {-9.8, 54}, {-7.3, 55.3}, {-5.6, 54.5}},
    {{-22, 64}, {-19, 63.4}, {-14, 64.7}, {-16, 66.4}, {-22.5, 66.3}},
    {{12.5, 38}, {15.5, 38.2}, {15, 36.8}},
    {{8.3, 41}, {9.7, 41}, {9.5, 39.2}, {8.5, 39}},
    {{8.7, 42.5}, {9.5, 42.8}, {9.3, 41.5}},
    {{23.6, 35.5}, {26.2, 35.2}, {24, 34.9}},
    {{32.4, 35}, {34.4, 35.6}, {33.5, 34.6}},
    {{12, 78}, {18, 80}, {25, 80}, {17, 76.7}},
    {{52, 71}, {56, 74.5}, {68, 76.8}, {58, 72}},
    // Japan and the islands of the south-east
    {{131, 34},
     {135.5, 33.6},
     {139, 34.8},
     {140.8, 35.7},
     {141.8, 39.5},
     {141.2, 41.3},
     {140, 40},
     {138.5, 37.4},
     {136.7, 37},
     {132.5, 35.4}},
    {{140.2, 42}, {143.3, 42}, {145.5, 43.5}, {141.8, 45.4}},
    {{130, 33.4}, {131.8, 33}, {131, 31.4}, {130.2, 31.6}},
    {{142, 46}, {143, 49}, {142.6, 54}, {142, 50}},
    {{109, 1.5}, {113, 3.2}, {117, 7}, {119, 5}, {117.5, 1}, {116, -4}, {110.5, -3}},
    {{95.3, 5.6}, {98, 4}, {103.5, 0}, {106, -3}, {105.7, -5.8}, {102, -4}, {98.5, 1}},
    {{105.2, -6.7}, {108.5, -6.7}, {114.4, -7.7}, {114.4, -8.7}, {106.4, -7.4}},
    {{119.5, -5.5},
     {119, -2},
     {120, 1},
     {125, 1.5},
     {121, 0.5},
     {123, -1},
     {121.5, -2},
     {122.5, -5},
     {120.7, -3}},
    {{131, -1},
     {134, -0.8},
     {137.8, -1.5},
     {145, -4.3},
     {147.5, -6},
     {150.7, -10.5},
     {146, -8.5},
     {143, -9},
     {138, -8.3},
     {137, -5},
     {133, -4}},
    {{120.5, 18.5}, {122.2, 18.4}, {121.6, 15.8}, {124, 13}, {120.6, 13.8}, {119.9, 16}},
    {{122, 7}, {125.4, 9.7}, {126.4, 7}, {125.4, 5.6}},
    {{120, 23}, {121.6, 25.2}, {120.9, 22}},
    {{79.8, 9.5}, {81.8, 7.3}, {80.5, 6}, {79.8, 7.5}},
    // Australia, Tasmania, New Zealand
    {{114, -22},     {113.5, -26},   {115.8, -32}, {115, -34.3},   {118, -35},   {124, -33.5},
     {131, -31.5},   {135.5, -34.8}, {138, -33},   {138.5, -35.6}, {140.5, -38}, {146.3, -39},
     {150, -37.5},   {153, -32},     {153.5, -28}, {152.8, -25.2}, {149, -21},   {146, -19},
     {145.3, -15},   {142.5, -10.8}, {141.6, -14}, {140.8, -17.5}, {137, -16},   {135.5, -14.8},
     {136.8, -12.2}, {132.5, -11.4}, {130, -13},   {128.5, -15},   {126, -14},   {122.2, -18},
     {117, -20.6}},
    {{144.7, -40.8}, {148.2, -40.9}, {147, -43.5}},
    {{173, -34.6},
     {175.6, -36.7},
     {178.4, -37.7},
     {176.8, -40},
     {175, -41.5},
     {173.8, -39.3},
     {174.8, -37.5}},
    {{172.7, -40.6}, {174.2, -41.7}, {171, -44.5}, {169, -46.6}, {166.6, -46}, {170.5, -43}},
    // North America
    {{-168, 65.6},   {-162, 67},     {-166, 68.5},   {-156.5, 71.3}, {-141, 69.7},   {-128, 70.3},
     {-115, 68.5},   {-108, 68},     {-95, 68.5},    {-94, 72},      {-86, 69.5},    {-81.5, 69},
     {-87, 65},      {-94, 61},      {-94.7, 58.8},  {-92.5, 57},    {-82.3, 55.2},  {-82, 52.8},
     {-79, 51.3},    {-79, 54.5},    {-76.7, 57},    {-78, 62.4},    {-72, 61.7},    {-69.5, 60},
     {-64.5, 60.2},  {-61.5, 56.8},  {-55.7, 52.8},  {-60, 50.2},    {-66.5, 50.2},  {-70, 47.5},
     {-65, 49},      {-64.5, 46.2},  {-60, 46},      {-66, 43.5},    {-67, 44.8},    {-70.5, 43.2},
     {-70, 41.7},    {-74, 40.5},    {-75.5, 38},    {-76, 36.5},    {-75.6, 35.2},  {-78, 33.9},
     {-81, 31.8},    {-80.2, 26.8},  {-80.5, 25.2},  {-82, 27},      {-82.8, 29},    {-85, 29.7},
     {-89.4, 30.2},  {-90, 29.1},    {-94, 29.6},    {-97.2, 27.7},  {-97.8, 22.5},  {-96.2, 19.2},
     {-94.5, 18.2},  {-91.5, 18.5},  {-90.5, 21},    {-87, 21.5},    {-88.2, 18},    {-88.8, 15.9},
     {-83.3, 15},    {-83.7, 11},    {-81.5, 8.9},   {-79.5, 9.5},   {-77.3, 8.4},   {-77.5, 7.4},
     {-80, 7.3},     {-83, 8.3},     {-85.7, 10},    {-87.6, 13},    {-92.2, 14.5},  {-95, 16},
     {-99.8, 16.8},  {-105.5, 20},   {-105.5, 22.7}, {-109.3, 26},   {-112.8, 31},   {-114.7, 31.6},
     {-111, 25},     {-109.5, 23},   {-112, 25.8},   {-115, 29},     {-117.2, 32.6}, {-120.6, 34.6},
     {-122.5, 37.5}, {-124.3, 40.3}, {-124, 46},     {-122.7, 48},   {-127.5, 51},   {-130.5, 54.8},
     {-135, 58.5},   {-140, 59.8},   {-147, 60.9},   {-151.5, 59.3}, {-154, 58},     {-163, 54.8},
     {-158, 57.8},   {-162, 59},     {-165.5, 62},   {-161, 64.5}},
    {{-73, 78.3},
     {-60, 82},
     {-35, 83.6},
     {-20, 81.5},
     {-19, 76},
     {-22, 70.5},
     {-32, 68},
     {-40, 65},
     {-43.5, 60},
     {-48, 61},
     {-52, 65},
     {-54, 70},
     {-60, 76}},
    {{-62, 66.5},
     {-66, 62.5},
     {-72, 64},
     {-78, 65},
     {-73, 68},
     {-88, 71},
     {-85, 73.7},
     {-77, 72.7},
     {-68, 70}},
    {{-117, 69}, {-105, 69}, {-105, 73}, {-117, 73}},
    {{-90, 76.5}, {-78, 76.5}, {-62, 82.5}, {-85, 82.3}},
    {{-59, 47.7}, {-53, 46.8}, {-55.8, 51.5}},
    {{-84.8, 22}, {-80, 23.2}, {-74.3, 20.2}, {-77.6, 19.9}, {-82, 22.4}},
    {{-74.3, 18.4}, {-72.8, 19.9}, {-68.5, 18.6}},
    // South America
    {{-77.3, 8.4},   {-75.5, 10.6},  {-71.7, 12.3}, {-68, 10.7},    {-62, 10.6},    {-57, 6},
     {-51.5, 4.3},   {-50, 0.5},     {-44.5, -2.8}, {-39, -3.3},    {-35.3, -5.3},  {-35, -9},
     {-38.8, -13.3}, {-39.3, -18},   {-41, -22},    {-45, -23.5},   {-48.5, -26},   {-50, -29.5},
     {-53.5, -34},   {-57, -34.5},   {-58, -38},    {-62.2, -39},   {-65, -41},     {-65.5, -45},
     {-67.5, -46.5}, {-65.8, -47.8}, {-69, -51},    {-68.4, -52.5}, {-65.2, -54.7}, {-69, -55.3},
     {-74, -52},     {-75.5, -47},   {-73.5, -42},  {-73.5, -37.2}, {-71.5, -33},   {-70.3, -27},
     {-70.2, -18.4}, {-76, -14},     {-79, -8},     {-81.2, -5},    {-80, -2.5},    {-80, 0.8},
     {-77.5, 4},     {-77.5, 7.4}},
};

const std::vector<Outline> kInlandWater = {
    {{50, 45}, {53, 46.5}, {53, 42}, {54, 40}, {53.8, 37}, {50, 37.5}, {49.3, 40.5}, {47.5, 43}},
    {{-92, 46.8}, {-85, 48.5}, {-84.5, 46.6}},
    {{-88, 42}, {-87.8, 44.5}, {-85.3, 46}, {-86.5, 42.5}},
    {{-84, 46}, {-80.5, 45}, {-82, 43.2}},
    {{32, -0.5}, {34.2, 0.3}, {33.5, -2.5}},
};

// Where it is dry: middle and reach, in degrees.
struct Patch {
    double lon, lat, reachLon, reachLat, strength;
};
constexpr Patch kDeserts[] = {
    {10, 23, 30, 8.5, 1},  {47, 24, 10, 9, 1},   {62, 38, 16, 8, 0.8},  {98, 41, 18, 6, 0.9},
    {130, -25, 13, 8, 1},  {19, -24, 7, 8, 0.8}, {-110, 33, 9, 8, 0.8}, {-68, -42, 5, 10, 0.7},
    {-70, -22, 4, 8, 0.9}, {48, 6, 6, 6, 0.6},   {70, 27, 6, 4, 0.7},
};

// Where the cities are: middle, reach, and how bright.
constexpr Patch kCities[] = {
    {8, 49, 12, 6, 1.2},    {-2, 52.5, 3, 2.5, 1.4},  {12, 43.5, 4, 4, 1},     {-3, 40, 5, 3, 0.7},
    {25, 50, 14, 7, 0.7},   {37.6, 55.7, 6, 3, 0.9},  {31, 30, 1.4, 3.5, 1.6}, {35.5, 32.5, 1.6, 3, 1.2},
    {29, 40, 5, 2, 0.8},    {52, 25.5, 4, 2, 1},      {46, 25, 5, 3, 0.4},     {52, 34, 6, 5, 0.4},
    {78, 25, 9, 8, 0.9},    {80, 12, 4, 4, 0.7},      {116, 33, 7, 7, 1.1},    {114, 23, 3, 2, 1.2},
    {137, 35.5, 5, 2, 1.5}, {127.5, 36.5, 2, 2, 1.5}, {107, -7, 6, 1.5, 0.9},  {101, 14, 4, 4, 0.6},
    {-77, 40, 7, 4, 1.4},   {-86, 40, 9, 6, 0.9},     {-96, 32, 7, 6, 0.7},    {-119, 35.5, 3, 4, 1.1},
    {-81, 28, 2, 3, 1},     {-100, 20, 4, 3, 0.9},    {-46, -22, 5, 4, 0.9},   {-58, -34, 4, 3, 0.8},
    {-74, 5, 4, 4, 0.5},    {-38, -9, 3, 5, 0.5},     {5, 8, 5, 4, 0.5},       {28, -27, 4, 3, 0.7},
    {-6, 33.5, 4, 2, 0.7},  {6, 36.3, 6, 1, 0.7},     {151, -33.5, 2, 3, 1},   {145, -37.5, 2, 1, 1},
    {37, 0, 3, 3, 0.3},     {15, 32, 5, 1, 0.4},      {44, 33, 3, 4, 0.5},     {60, 56, 20, 3, 0.5},
};

Vec onSphere(double lon, double lat)
{
    const double a = lon * kPi / 180, b = lat * kPi / 180;
    return {std::cos(b) * std::sin(a), std::sin(b), -std::cos(b) * std::cos(a)};
}

bool inside(const Outline &outline, Point p)
{
    bool in = false;
    for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
        const Point a = outline[i], b = outline[j];
        if ((a.lat > p.lat) != (b.lat > p.lat) &&
            p.lon < (b.lon - a.lon) * (p.lat - a.lat) / (b.lat - a.lat) + a.lon)
            in = !in;
    }
    return in;
}

double patches(const Patch *first, const Patch *last, Point p)
{
    double most = 0;
    for (; first != last; ++first) {
        const double dx = (p.lon - first->lon) / first->reachLon, dy = (p.lat - first->lat) / first->reachLat;
        most = std::max(most, first->strength * std::exp(-(dx * dx + dy * dy)));
    }
    return most;
}

Point pointAt(int x, int y) { return {(x + 0.5) * 360 / kWidth - 180, 90 - (y + 0.5) * 180 / kHeight}; }

Field drawLand()
{
    Field land(kWidth, kHeight);
    struct Box {
        double west = 1e9, east = -1e9, south = 1e9, north = -1e9;
    };
    const auto boxOf = [](const Outline &o) {
        Box b;
        for (Point p : o)
            b = {std::min(b.west, p.lon), std::max(b.east, p.lon), std::min(b.south, p.lat),
                 std::max(b.north, p.lat)};
        return b;
    };
    const auto anyInside = [&](const std::vector<Outline> &all, const std::vector<Box> &boxes, Point p) {
        for (std::size_t i = 0; i < all.size(); ++i)
            if (p.lon >= boxes[i].west && p.lon <= boxes[i].east && p.lat >= boxes[i].south &&
                p.lat <= boxes[i].north && inside(all[i], p))
                return true;
        return false;
    };
    std::vector<Box> landBoxes, waterBoxes;
    for (const Outline &o : kLand)
        landBoxes.push_back(boxOf(o));
    for (const Outline &o : kInlandWater)
        waterBoxes.push_back(boxOf(o));
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            Point p = pointAt(x, y);
            const Vec s = onSphere(p.lon, p.lat) * 14;
            const double stretch = 1 / std::max(0.2, std::cos(p.lat * kPi / 180));
            p.lon = std::clamp(p.lon + 1.3 * stretch * fractal(s, 5), -180.0, 180.0);
            p.lat += 1.3 * fractal(s + Vec{31, 17, 5}, 5);
            const bool ice = p.lat < -71 + 4 * noise(onSphere(p.lon, -70) * 3);
            land.at(x, y) = ice || (anyInside(kLand, landBoxes, p) && !anyInside(kInlandWater, waterBoxes, p))
                                ? 1.0f
                                : 0.0f;
        }
    return land;
}

Vec landColour(Point p, Vec s, double inland)
{
    const double cold = smooth(48, 68, std::fabs(p.lat) + 6 * noise(s * 6));
    const double warm = smooth(30, 8, std::fabs(p.lat));
    double dry = patches(std::begin(kDeserts), std::end(kDeserts), p);
    dry = clamp01(smooth(0.2, 0.65, dry + 0.18 * fractal(s * 9, 4)));
    Vec colour = mix(hex(0x4A6B3A), hex(0x2F5A2C), warm);
    colour = mix(colour, hex(0x7C7448), 0.45 * smooth(0.0, 0.5, fractal(s * 7, 4)) * (1 - warm));
    colour = mix(colour, mix(hex(0xC09A5E), hex(0xA8743F), smooth(-0.3, 0.5, fractal(s * 12, 4))), dry);
    colour = mix(colour, hex(0x6E7358), cold * 0.7);
    const double peaks = ridged(s * 11, 4) * smooth(0.55, 0.95, inland);
    colour = mix(colour, hex(0x6A5A48), 0.35 * smooth(0.62, 0.85, peaks));
    const double snow = std::max(smooth(64, 74, std::fabs(p.lat) + 5 * fractal(s * 8, 3)),
                                 0.6 * smooth(0.80, 0.92, peaks) * smooth(25, 45, std::fabs(p.lat)));
    const double greenland =
        smooth(59, 62, p.lat) * smooth(32, 22, std::fabs(p.lon + 42)) * smooth(0.35, 0.8, inland);
    colour = mix(colour, hex(0xE4ECF4), std::max(snow, greenland));
    return colour * (1 + 0.30 * fractal(s * 30, 4));
}

Vec seaColour(Point p, Vec s, double coast)
{
    Vec colour = mix(hex(0x0A2A58), hex(0x10488C), smooth(-0.7, 0.7, fractal(s * 3, 4)));
    colour = mix(colour, hex(0x1F74A8), 0.55 * smooth(0.05, 0.5, coast));
    const double ice = smooth(73, 79, p.lat + 4 * fractal(s * 8, 4));
    return mix(colour, hex(0xDCE8F2), ice);
}

/// Cloud cover 0 to 1: belts of weather by latitude, stirred into swirls.
double cloudCover(Point p, Vec s)
{
    const Vec stir{fractal(s * 2.1, 4), fractal(s * 2.1 + Vec{9, 4, 1}, 4),
                   fractal(s * 2.1 + Vec{2, 8, 5}, 4)};
    const Vec flow{s.x + 0.38 * stir.x, s.y * 1.7 + 0.20 * stir.y, s.z + 0.38 * stir.z};
    const double large = fractal(flow * 2.6, 6);
    const double fine = fractal(flow * 9 + stir * 2.0, 6);
    const double belt =
        0.16 * std::cos((p.lat - 2) * kPi / 180 * 6.4) + 0.14 * smooth(30, 55, std::fabs(p.lat));
    return smooth(0.12, 0.75, large * 0.85 + fine * 0.42 + belt);
}

/// 0 away from a crack to 1 in its middle; cracks run along the borders of cells around scattered points.
double crackAt(Vec s, double scale)
{
    const Vec bent =
        (s +
         Vec{fractal(s * 5, 4), fractal(s * 5 + Vec{7, 1, 2}, 4), fractal(s * 5 + Vec{1, 9, 4}, 4)} * 0.09) *
        scale;
    double nearest = 1e9, second = 1e9;
    const int bx = static_cast<int>(std::floor(bent.x)), by = static_cast<int>(std::floor(bent.y)),
              bz = static_cast<int>(std::floor(bent.z));
    for (int z = bz - 1; z <= bz + 1; ++z)
        for (int y = by - 1; y <= by + 1; ++y)
            for (int x = bx - 1; x <= bx + 1; ++x) {
                const auto h = [&](std::uint32_t n) {
                    return chance(static_cast<std::uint32_t>(x) * 7 + n, static_cast<std::uint32_t>(y),
                                  static_cast<std::uint32_t>(z));
                };
                const double d = length(bent - Vec{x + h(1), y + h(2), z + h(3)});
                second = std::min(second, std::max(nearest, d));
                nearest = std::min(nearest, d);
            }
    return 1 - clamp01((second - nearest) / 0.22);
}

/// The cities' lamps: bright where a city reaches, more so near the coast, gathered into towns.
Vec lampColour(Point p, Vec s, double inland, double towns)
{
    const double coast = 1 - smooth(0.5, 1.0, inland);
    double lights = patches(std::begin(kCities), std::end(kCities), p);
    lights *= 0.55 + 0.9 * coast;
    const double clumps =
        smooth(0.05, 0.75, fractal(s * 60, 4) + 0.25) * smooth(-0.2, 0.5, fractal(s * 22, 3));
    const double glow = lights * (0.9 * clumps + (towns > 0.985 - 0.05 * lights ? 1.4 : 0));
    return hex(0xFFC56B) * std::min(1.0, glow);
}

void drawMaps(const std::string &folder)
{
    constexpr Bytes<3> kWhite{0xE8, 0xEE, 0xF5};
    constexpr int kThickest = 240; // of 255: the densest cloud still lets a little ground through
    const Field land = drawLand();
    const Field nearLand = blurred(land, 5, Sides::MeetAround);
    const Field wide = blurred(land, 22, Sides::MeetAround);
    Grid<Bytes<3>> day(kWidth, kHeight), night(kWidth, kHeight);
    Grid<Bytes<4>> clouds(kWidth, kHeight);
    Grid<Bytes<1>> cracks(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const Point p = pointAt(x, y);
            const Vec s = onSphere(p.lon, p.lat);
            const double inland = wide.at(x, y);
            if (land.at(x, y) > 0.5f) {
                const double town =
                    chance(static_cast<std::uint32_t>(x / 3), static_cast<std::uint32_t>(y / 3), 5);
                day.at(x, y) = bytesOf(toSrgb(landColour(p, s, inland)));
                night.at(x, y) = bytesOf(toSrgb(lampColour(p, s, inland, town)));
            } else {
                day.at(x, y) = bytesOf(toSrgb(seaColour(p, s, nearLand.at(x, y))));
            }
            const long cover = std::lround(kThickest * cloudCover(p, s));
            clouds.at(x, y) = withAlpha(kWhite, static_cast<std::uint8_t>(cover));
            cracks.at(x, y) = {byteOf(std::max(crackAt(s, 2.1), 0.75 * crackAt(s + Vec{4, 1, 7}, 4.6)))};
        }
    writePng(folder + "/earth_day.png", day);
    writePng(folder + "/earth_night.png", night);
    writePng(folder + "/earth_clouds.png", clouds);
    writePng(folder + "/earth_cracks.png", cracks);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        fail("usage: earthmap FOLDER");
    drawMaps(argv[1]);
}
