#pragma once

#include <cstdint>

#include "graphics/surface.h"

namespace mygame
{

/// Cuts pictures out of a strip. One line of the strip only marks them: a picture is a run of columns (or
/// rows) in which that line has the colour of the top-left pixel, without the line itself. Between two runs
/// lies something else.
class MarkedRuns
{
public:
    /// The line that holds the marks: the pictures stand side by side below row 0, or are stacked to the
    /// right of column 0.
    enum class Marks { InRow0, InColumn0 };

    /// Begins with the run at the strip's start. The strip must stay alive and have that pixel.
    MarkedRuns(const Surface &strip, Marks marks);

    /// True when there is no run here any more; what is cut is empty then.
    bool isPastEnd() const { return start_ >= length_; }

    /// Goes on to the next run, past the end after the last one.
    void next();

    /// A picture of its own, without a key.
    Surface cut() const;

private:
    bool isMarked(std::int32_t at) const;
    void findEnd();

    const Surface &strip_;
    bool sideBySide_;
    std::int32_t length_; ///< Of the strip, along the marks.
    Pixel marker_;
    std::int32_t start_ = 0;
    std::int32_t end_ = 0; ///< The first place behind the run.
};

} // namespace mygame
