#include <algorithm>
#include <climits>
#include <cstdlib>
#include <functional>
#include <map>
#include <new>

#include "tests/support/letters.h"

namespace
{

// Around the pixels of every surface lies memory in which no byte may change.
constexpr std::size_t kGuardBytes = 256;
constexpr unsigned char kGuard = 0xA5;
std::map<void *, std::size_t> sizes;

} // namespace

void *operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t &) noexcept
{
    const std::size_t unit = static_cast<std::size_t>(alignment), room = (size + unit - 1) / unit * unit;
    auto *memory = static_cast<unsigned char *>(std::aligned_alloc(unit, room + 2 * kGuardBytes));
    if (!memory)
        return nullptr;
    std::fill_n(memory, room + 2 * kGuardBytes, kGuard);
    sizes[memory + kGuardBytes] = size;
    return memory + kGuardBytes;
}

void operator delete[](void *pixels, std::align_val_t) noexcept
{
    unsigned char *begin = static_cast<unsigned char *>(pixels), *end = begin + sizes[pixels];
    for (const unsigned char *guard : {begin - kGuardBytes, end})
        EXPECT_EQ(std::count(guard, guard + kGuardBytes, kGuard), kGuardBytes) << "written beside the pixels";
    std::free(begin - kGuardBytes);
}

namespace mygame::tests
{
namespace
{

constexpr const char *kBlank = "...../...../...../...../";

/// Coordinates around both edges of the blank picture, and the ends of the range.
constexpr std::int32_t kEdges[] = {INT_MIN, INT_MIN + 1, -3, -2, -1, 0, 1, 2, 3, 4, 5, 6, INT_MAX};

std::string drawn(const std::function<void(Surface &)> &draw)
{
    Surface result = surfaceOf(kBlank);
    draw(result);
    return lettersOf(result);
}

/// The blank picture where each pixel is asked for by itself, without any clipping.
std::string pointwise(const std::function<char(std::int64_t x, std::int64_t y)> &letterAt)
{
    std::string letters = kBlank;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if (letters[i] != '/')
            letters[i] = letterAt(i % 6, i / 6);
    }
    return letters;
}

Surface keyed(const std::string &letters, char key)
{
    Surface surface = surfaceOf(letters);
    surface.setColourKey(pixelOf(key));
    return surface;
}

TEST(Blit, NeverLeavesEitherSurface)
{
    const std::string_view letters = "abcdefghijklmnopqrst";
    const Surface sources[] = {surfaceOf("abc/def/"), keyed("abc/def/", 'e'), Surface(),
                               surfaceOf("abcdefghij/klmnopqrst/"), surfaceOf("ab/cd/ef/gh/ij/kl/mn/op/")};
    for (const Surface &source : sources) {
        for (const std::int32_t x : kEdges) {
            for (const std::int32_t y : kEdges) {
                EXPECT_EQ(drawn([&](Surface &target) { source.blitTo(target, x, y); }),
                          pointwise([&](std::int64_t px, std::int64_t py) {
                              const std::int64_t sx = px - x, sy = py - y, width = source.width();
                              if (sx < 0 || sx >= width || sy < 0 || sy >= source.height())
                                  return '.';
                              const char letter = letters[static_cast<std::size_t>(sx + sy * width)];
                              return source.keyEnabled() && letter == 'e' ? '.' : letter;
                          }))
                    << "at " << x << ", " << y;
            }
        }
    }
}

TEST(Blit, FollowsTheKeyThroughRowsOfEveryLength)
{
    for (std::size_t length = 1; length < 70; ++length) {
        std::string source, expected = ".";
        for (std::size_t i = 0; i < length; ++i) {
            source += i * i % 7 < 3 ? 'k' : static_cast<char>('A' + i % 9);
            expected += source.back() == 'k' ? '.' : source.back();
        }
        std::string blank(length + 1, '.');
        for (std::string *rows : {&source, &expected, &blank}) {
            *rows += '/';
            *rows += *rows;
        }
        Surface target = surfaceOf(blank);
        keyed(source, 'k').blitTo(target, 1, 0);
        EXPECT_EQ(lettersOf(target), expected);
    }
}

TEST(Rectangles, CoverBothCornersAndNeverMoreThanTheSurface)
{
    constexpr std::int32_t kRows[] = {INT_MIN, -1, 0, 1, 3, 4, INT_MAX};
    for (const std::int32_t x1 : kEdges) {
        for (const std::int32_t x2 : kEdges) {
            for (const std::int32_t y1 : kRows) {
                for (const std::int32_t y2 : kRows) {
                    SCOPED_TRACE(testing::PrintToString(std::array{x1, y1, x2, y2}));
                    const auto within = [](std::int64_t at, std::int32_t from, std::int32_t to) {
                        return at >= from && at <= to;
                    };
                    EXPECT_EQ(drawn([&](Surface &target) { target.fillRect(x1, y1, x2, y2, '#'); }),
                              pointwise([&](std::int64_t x, std::int64_t y) {
                                  return within(x, x1, x2) && within(y, y1, y2) ? '#' : '.';
                              }));
                    const std::int32_t left = std::min(x1, x2), right = std::max(x1, x2);
                    const std::int32_t top = std::min(y1, y2), bottom = std::max(y1, y2);
                    EXPECT_EQ(drawn([&](Surface &target) { target.drawRect(x1, y1, x2, y2, '#'); }),
                              pointwise([=](std::int64_t x, std::int64_t y) {
                                  const bool inside = within(x, left, right) && within(y, top, bottom);
                                  const bool edge = x == left || x == right || y == top || y == bottom;
                                  return inside && edge ? '#' : '.';
                              }));
                }
            }
        }
    }
}

TEST(Surface, IsBlackWhenCreatedAndEmptyAfterAnImpossibleSize)
{
    Surface surface = surfaceOf("ab/");
    surface.setColourKey(kMagenta);
    EXPECT_TRUE(surface.create(3, 2));
    EXPECT_EQ(lettersOf(surface), "___/___/");
    EXPECT_FALSE(surface.keyEnabled());
    for (const std::int32_t width : {-1, INT_MIN, 65536, INT_MAX}) {
        EXPECT_FALSE(surface.create(width, 65536)) << width;
        EXPECT_EQ(surface.pixels(), nullptr);
        EXPECT_EQ(surface.width() | surface.height() | surface.pixelCount(), 0);
    }
}

} // namespace
} // namespace mygame::tests
