#pragma once

#include <chrono>
#include <optional>

namespace platform
{

/// The one key that reaches the program, and ends it: so that no brush of it does, it must be pressed twice.
class EscapeKey
{
public:
    using Clock = std::chrono::steady_clock;

    /// How long the first press counts.
    static constexpr std::chrono::seconds kPatience{2};

    /// @return whether this press is to be passed on, being the second within `kPatience`.
    bool press(Clock::time_point now);

    /// Whether a second press is waited for.
    bool isAsking(Clock::time_point now) const { return firstPress_ && now - *firstPress_ < kPatience; }

    void forget() { firstPress_.reset(); }

private:
    std::optional<Clock::time_point> firstPress_;
};

} // namespace platform
