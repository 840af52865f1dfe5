#pragma once

#include <chrono>

namespace platform
{

/// Whether the display itself made a frame wait.
enum class VerticalSync { Off, On };

/// Makes frames as long as the display's refresh period.
class FramePacer
{
public:
    /// In Hz; a value that no display has counts as 60.
    void setRefreshRate(int rate);

    /// Waits until a period has passed since the last wait. After a frame that vertical sync seems to have
    /// held there is nothing to wait for. Of the time lost in a long frame a period at most is made up for.
    void wait(VerticalSync sync);

private:
    using Clock = std::chrono::steady_clock;

    Clock::duration period = std::chrono::nanoseconds(std::chrono::seconds(1)) / 60;
    Clock::time_point last = Clock::now();
};

} // namespace platform
