/// The picture on the handheld's screen.
#pragma once

#include <array>
#include <cstdint>

#include "platform/sdl/screen_layout.h"

namespace platform
{

/// Pixels of 5 bits red, 6 green, 5 blue, row by row from the top.
using Frame = std::array<std::uint16_t, kScreenSize.width * kScreenSize.height>;

inline const std::uint16_t *rowOf(const Frame &frame, int y)
{
    return frame.data() + static_cast<std::ptrdiff_t>(y) * kScreenSize.width;
}

/// Rows `first` to `last` - 1; none when the two are equal.
struct RowSpan {
    int first;
    int last;

    bool empty() const { return first == last; }
};

constexpr RowSpan kAllRows{0, kScreenSize.height};

/// The smallest span that holds both.
RowSpan spanOver(RowSpan a, RowSpan b);

/// What of a window does not show a frame as it is.
struct Damage {
    RowSpan rows;
    bool surroundings; ///< What lies around the picture, too; then of the picture all rows.

    bool empty() const { return rows.empty(); }
};

constexpr Damage kWholeWindow{kAllRows, true};
constexpr Damage kNoDamage{{0, 0}, false};

/// The smallest span outside which two frames are equal.
RowSpan differingRows(const Frame &a, const Frame &b);

} // namespace platform
