#include "replay/checks.h"

#include <iostream>
#include <utility>

namespace replay
{

Checks::Checks(const Script &script, std::string path) : path_(std::move(path))
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
    std::cerr << path_ << ':' << check.line << ": the pictures are not those recorded, here or before: frame "
              << frame << '\n';
}

} // namespace replay
