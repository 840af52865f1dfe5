#include "screens/menu_widget.h"

#include <cstddef>

#include "graphics/screen_size.h"
#include "platform/clock.h"
#include "screens/menu_listener.h"

namespace mygame
{
namespace
{

constexpr std::int32_t kRowPitch = 30;
constexpr std::int32_t kTextTopInRow = 6;
/// A tap chooses a row strictly between these.
constexpr std::int32_t kTapZoneLeft = kScreenCentreX - 60;
constexpr std::int32_t kTapZoneRight = kScreenCentreX + 60;
constexpr Ms kSlideMs = 300;
constexpr std::int32_t kNoRow = -1;

/// A number beyond every screen, and well within an integer's range.
constexpr float kFarAway = 1.0e9f;

/// Truncates toward zero. After hours in the background a slide may be computed to any place at all.
std::int32_t truncated(float x)
{
    if (x > kFarAway || x < -kFarAway)
        x = x > 0 ? kFarAway : -kFarAway;
    return static_cast<std::int32_t>(x);
}

} // namespace

void MenuWidget::setup(const BitmapFont &rowFont, const Surface &left, const Surface &right)
{
    font = rowFont;
    leftCap = left;
    rightCap = right;
    listener = nullptr;
}

void MenuWidget::open(MenuListener *newListener)
{
    listener = newListener;
    state = State::Opening;
    selected = kNoRow;
    progress = 0;
    items.clear();
    startTick = platform::GetTickCount();
}

void MenuWidget::addItem(const std::u16string &text) { items.push_back(text); }

std::int32_t MenuWidget::slideDistance(Tick now) const
{
    return msBetween(startTick, now) * leftCap.width() / kSlideMs;
}

void MenuWidget::update(Tick now)
{
    if (state == State::Opening) {
        progress = slideDistance(now);
        if (progress >= leftCap.width())
            state = State::Open;
    } else if (state == State::Closing) {
        progress = leftCap.width() - slideDistance(now);
        if (progress <= 0)
            reportChoice();
    }
}

void MenuWidget::reportChoice()
{
    state = State::Closed;
    // The listener may open the menu again, so nothing of it is touched after this call.
    listener->itemChosen(items[static_cast<std::size_t>(selected)]);
}

MenuWidget::RowLayout MenuWidget::layout() const
{
    if (state == State::Open)
        return {0, kScreenWidth - rightCap.width(), kScreenCentreX};
    const std::int32_t width = leftCap.width();
    const std::int32_t offset = progress - width;
    const float share = width == 0 ? 1.0f : static_cast<float>(progress) / static_cast<float>(width);
    const float rightCapX = static_cast<float>(kScreenWidth) - share * static_cast<float>(rightCap.width());
    return {offset, truncated(rightCapX), kScreenCentreX + offset};
}

std::int32_t MenuWidget::columnTop() const
{
    return kScreenCentreY - kRowPitch / 2 * static_cast<std::int32_t>(items.size());
}

void MenuWidget::render(Surface &target) const
{
    if (state == State::Closed)
        return;
    const RowLayout row = layout();
    for (std::size_t i = items.size(); i-- > 0;) {
        const std::int32_t top = columnTop() + kRowPitch * static_cast<std::int32_t>(i);
        rightCap.blitTo(target, row.rightCapX, top);
        leftCap.blitTo(target, row.leftCapX, top);
        target.drawText(font, items[i], row.textX, top + kTextTopInRow, TextAlign::AlignCentre);
    }
}

void MenuWidget::onPointer(std::int32_t x, std::int32_t y)
{
    if (state != State::Open || x <= kTapZoneLeft || x >= kTapZoneRight)
        return;
    const std::int32_t top = columnTop();
    if (y < top || y >= top + kRowPitch * static_cast<std::int32_t>(items.size()))
        return;
    // Kept: the caps and the text's length do not matter; every row is tapped in the same zone.
    selected = (y - top) / kRowPitch;
    state = State::Closing;
    startTick = platform::GetTickCount();
}

} // namespace mygame
