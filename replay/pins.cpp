#include "replay/pins.h"

#include <algorithm>

#include "replay/checksum.h"

namespace replay
{
namespace
{

constexpr std::uint32_t kMsPerSecond = 1000;

} // namespace

void Pins::poll(std::uint32_t atMs)
{
    polledMs_ = atMs;
    latestPolledMs_ = std::max(latestPolledMs_, atMs);
}

void Pins::show(std::uint32_t runningChecksum)
{
    // Lines are carried out in order, so none waits for a time that was there before: the count of ticks may
    // wrap, or stand still.
    if (polledMs_ < latestPolledMs_ || (last_ && polledMs_ <= last_->atMs))
        return;
    last_ = {polledMs_, runningChecksum};
    if (pins_.empty() || polledMs_ / kMsPerSecond != pins_.back().atMs / kMsPerSecond)
        pins_.push_back(*last_);
}

std::string Pins::pinned(const Script &script) const
{
    std::vector<AddedLine> checks;
    const auto add = [&](const Pin &pin) {
        checks.push_back({pin.atMs, "check " + checksumDigits(pin.checksum)});
    };
    for (const Pin &pin : pins_)
        add(pin);
    if (last_ && last_->atMs != pins_.back().atMs)
        add(*last_);
    return rewritten(
        script, [](const TimedAction &timed) { return std::holds_alternative<Check>(timed.action); }, checks);
}

} // namespace replay
