#include "platform/sdl/frame.h"

#include <algorithm>
#include <cstring>

namespace platform
{
namespace
{

constexpr std::size_t kRowBytes = kScreenSize.width * sizeof(std::uint16_t);

} // namespace

RowSpan spanOver(RowSpan a, RowSpan b)
{
    if (a.empty() || b.empty())
        return a.empty() ? b : a;
    return {std::min(a.first, b.first), std::max(a.last, b.last)};
}

RowSpan differingRows(const Frame &a, const Frame &b)
{
    const auto equal = [&](int y) { return std::memcmp(rowOf(a, y), rowOf(b, y), kRowBytes) == 0; };
    RowSpan span = kAllRows;
    while (span.first < span.last && equal(span.first))
        ++span.first;
    while (span.first < span.last && equal(span.last - 1))
        --span.last;
    return span;
}

} // namespace platform
