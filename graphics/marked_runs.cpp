#include "graphics/marked_runs.h"

namespace mygame
{

MarkedRuns::MarkedRuns(const Surface &strip, Marks marks)
    : strip(strip), sideBySide(marks == Marks::InRow0), length(sideBySide ? strip.width() : strip.height()),
      marker(strip.pixelAt(0, 0))
{
    findEnd();
}

bool MarkedRuns::isMarked(std::int32_t at) const
{
    return (sideBySide ? strip.pixelAt(at, 0) : strip.pixelAt(0, at)) == marker;
}

void MarkedRuns::findEnd()
{
    // Behind the strip a pixel counts as black, which may be the mark.
    while (end < length && isMarked(end))
        ++end;
}

void MarkedRuns::next()
{
    // What ended the run has no mark and need not be looked at again.
    start = end + 1;
    while (start < length && !isMarked(start))
        ++start;
    end = start;
    findEnd();
}

Surface MarkedRuns::cut() const
{
    Surface picture;
    if (sideBySide) {
        picture.create(end - start, strip.height() - 1);
        strip.blitTo(picture, -start, -1);
    } else {
        picture.create(strip.width() - 1, end - start);
        strip.blitTo(picture, -1, -start);
    }
    return picture;
}

} // namespace mygame
