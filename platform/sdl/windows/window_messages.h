#pragma once

#include <utility>

union SDL_Event;

namespace platform
{

/// What Windows tells the window and SDL does not pass on.
class WindowMessages
{
public:
    /// To be told every SDL_SYSWMEVENT, in order.
    void note(const SDL_Event &event);

    /// @return true once after the session was about to end.
    bool takeEndOfSession() { return std::exchange(sessionEnds_, false); }

    /// Whether the key last pressed was down before that press, so that it is a repetition. SDL takes the
    /// first repetition in a window that has just come to the front for a press.
    bool lastPressIsOld() const { return lastPressIsOld_; }

private:
    bool sessionEnds_ = false;
    bool lastPressIsOld_ = false;
};

} // namespace platform
