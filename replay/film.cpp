#include "replay/film.h"

#include "replay/picture_file.h"

namespace replay
{
namespace
{

constexpr std::uint64_t kPicturesPerSecond = 60;
constexpr std::uint64_t kMsPerSecond = 1000;

} // namespace

/// When the next picture is taken, counted from the first frame.
std::uint64_t Film::nextMs() const { return pictures_ * kMsPerSecond / kPicturesPerSecond; }

void Film::show(std::uint64_t elapsedMs, std::span<const std::uint16_t> pixels)
{
    if (shown_.empty())
        firstMs_ = elapsedMs;
    shownMs_ = elapsedMs - firstMs_;
    while (nextMs() < shownMs_)
        writePicture();
    shown_ = toRgb(pixels);
}

void Film::finish()
{
    while (!shown_.empty() && nextMs() <= shownMs_)
        writePicture();
}

void Film::writePicture()
{
    file_.write({reinterpret_cast<const char *>(shown_.data()), shown_.size()});
    ++pictures_;
}

} // namespace replay
