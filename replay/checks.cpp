#include "replay/checks.h"

#include <utility>

namespace replay
{

Checks::Checks(const Script &script, Report reportUnmet) : report_(std::move(reportUnmet))
{
    for (const TimedAction &timed : script.timeline) {
        if (const auto *check = std::get_if<Check>(&timed.action))
            checks_.push_back({timed.line, check->checksum});
    }
}

void Checks::compare(std::uint64_t frame, std::uint32_t runningChecksum)
{
    for (; compared_ < due_; ++compared_) {
        if (checks_[compared_].checksum != runningChecksum)
            reportUnmet(checks_[compared_], frame);
    }
}

void Checks::finish(std::uint64_t frames)
{
    for (; compared_ < checks_.size(); ++compared_)
        reportUnmet(checks_[compared_], frames + 1);
}

void Checks::reportUnmet(const Expected &check, std::uint64_t frame)
{
    areMet_ = false;
    report_(check.line, frame);
}

} // namespace replay
