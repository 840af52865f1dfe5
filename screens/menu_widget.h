#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "graphics/bitmap_font.h"
#include "graphics/surface.h"
#include "graphics/ticks.h"

namespace mygame
{

class MenuListener;

/// The one menu: a column of rows in the middle of the screen, each between two caps that slide in from the
/// edges and, when a row has been tapped, out again; only then is the choice reported. Whoever opens it last
/// owns it. It draws no background.
class MenuWidget
{
public:
    /// Stores the skin: copies that share the pixels.
    void setup(const BitmapFont &rowFont, const Surface &left, const Surface &right);

    /// Begins to slide in, without rows and whatever it showed before. Rows are to be added before the next
    /// frame. The listener must stay alive until the next `open`.
    void open(MenuListener *listener);

    /// Adds a row below the others.
    void addItem(const std::u16string &text);

    /// Advances the slide to a tick. At the end of the closing one the listener is called, as the last thing.
    void update(Tick now);

    void render(Surface &target) const;

    /// Chooses the row at a tap in screen coordinates. Only while fully open, and only in the tap zone.
    void onPointer(std::int32_t x, std::int32_t y);

private:
    enum class State : std::int32_t {
        Open = 1,
        Opening = 2,
        Closing = 3,
        Closed = 4,
    };

    /// Where the parts of every row are drawn.
    struct RowLayout {
        std::int32_t leftCapX;
        std::int32_t rightCapX;
        std::int32_t textX;
    };

    std::int32_t columnTop() const;
    std::int32_t slideDistance(Tick now) const;
    RowLayout layout() const;
    void reportChoice();

    std::vector<std::u16string> items_;
    BitmapFont font_;
    Surface leftCap_;
    Surface rightCap_;
    State state_ = State::Closed;
    MenuListener *listener_ = nullptr;
    std::int32_t selected_ = -1; ///< Index of the tapped row, -1 while none.
    std::int32_t progress_ = 0;  ///< Pixels that the left caps have slid in, up to their width.
    Tick startTick_ = 0;
};

} // namespace mygame
