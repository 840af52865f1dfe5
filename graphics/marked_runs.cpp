#include "graphics/marked_runs.h"

namespace mygame
{

MarkedRuns::MarkedRuns(const Surface &strip, Marks marks)
    : strip_(strip), sideBySide_(marks == Marks::InRow0),
      length_(sideBySide_ ? strip.width() : strip.height()), marker_(strip.pixelAt(0, 0))
{
    findEnd();
}

bool MarkedRuns::isMarked(std::int32_t at) const
{
    return (sideBySide_ ? strip_.pixelAt(at, 0) : strip_.pixelAt(0, at)) == marker_;
}

void MarkedRuns::findEnd()
{
    // Behind the strip a pixel counts as black, which may be the mark.
    while (end_ < length_ && isMarked(end_))
        ++end_;
}

void MarkedRuns::next()
{
    // What ended the run has no mark and need not be looked at again.
    start_ = end_ + 1;
    while (start_ < length_ && !isMarked(start_))
        ++start_;
    end_ = start_;
    findEnd();
}

Surface MarkedRuns::cut() const
{
    Surface picture;
    if (sideBySide_) {
        picture.create(end_ - start_, strip_.height() - 1);
        strip_.blitTo(picture, -start_, -1);
    } else {
        picture.create(strip_.width() - 1, end_ - start_);
        strip_.blitTo(picture, -1, -start_);
    }
    return picture;
}

} // namespace mygame
