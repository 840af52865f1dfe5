#include "screens/menu_widget.h"

#include <algorithm>
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
std::int32_t truncated(float x) { return static_cast<std::int32_t>(std::clamp(x, -kFarAway, kFarAway)); }

} // namespace

void MenuWidget::setup(const BitmapFont &rowFont, const Surface &left, const Surface &right)
{
    font_ = rowFont;
    leftCap_ = left;
    rightCap_ = right;
    listener_ = nullptr;
}

void MenuWidget::open(MenuListener *listener)
{
    listener_ = listener;
    state_ = State::Opening;
    selected_ = kNoRow;
    progress_ = 0;
    items_.clear();
    startTick_ = platform::GetTickCount();
}

void MenuWidget::addItem(const std::u16string &text) { items_.push_back(text); }

std::int32_t MenuWidget::slideDistance(Tick now) const
{
    return msBetween(startTick_, now) * leftCap_.width() / kSlideMs;
}

void MenuWidget::update(Tick now)
{
    if (state_ == State::Opening) {
        progress_ = slideDistance(now);
        if (progress_ >= leftCap_.width())
            state_ = State::Open;
    } else if (state_ == State::Closing) {
        progress_ = leftCap_.width() - slideDistance(now);
        if (progress_ <= 0)
            reportChoice();
    }
}

void MenuWidget::reportChoice()
{
    state_ = State::Closed;
    // The listener may open the menu again, so nothing of it is touched after this call.
    listener_->itemChosen(items_[static_cast<std::size_t>(selected_)]);
}

MenuWidget::RowLayout MenuWidget::layout() const
{
    if (state_ == State::Open)
        return {0, kScreenWidth - rightCap_.width(), kScreenCentreX};
    const std::int32_t width = leftCap_.width();
    const std::int32_t offset = progress_ - width;
    const float share = width == 0 ? 1.0f : static_cast<float>(progress_) / static_cast<float>(width);
    const float rightCapX = static_cast<float>(kScreenWidth) - share * static_cast<float>(rightCap_.width());
    return {offset, truncated(rightCapX), kScreenCentreX + offset};
}

std::int32_t MenuWidget::columnTop() const
{
    return kScreenCentreY - kRowPitch / 2 * static_cast<std::int32_t>(items_.size());
}

void MenuWidget::render(Surface &target) const
{
    if (state_ == State::Closed)
        return;
    const RowLayout row = layout();
    for (std::size_t i = items_.size(); i-- > 0;) {
        const std::int32_t top = columnTop() + kRowPitch * static_cast<std::int32_t>(i);
        rightCap_.blitTo(target, row.rightCapX, top);
        leftCap_.blitTo(target, row.leftCapX, top);
        target.drawText(font_, items_[i], row.textX, top + kTextTopInRow, TextAlign::AlignCentre);
    }
}

void MenuWidget::onPointer(std::int32_t x, std::int32_t y)
{
    if (state_ != State::Open || x <= kTapZoneLeft || x >= kTapZoneRight)
        return;
    const std::int32_t top = columnTop();
    if (y < top || y >= top + kRowPitch * static_cast<std::int32_t>(items_.size()))
        return;
    // Kept: the caps and the text's length do not matter; every row is tapped in the same zone.
    selected_ = (y - top) / kRowPitch;
    state_ = State::Closing;
    startTick_ = platform::GetTickCount();
}

} // namespace mygame
