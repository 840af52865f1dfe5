#include "graphics/animated_sprite.h"

#include "graphics/marked_runs.h"

namespace mygame
{

AnimatedSprite::AnimatedSprite(const AnimatedSprite &other) { *this = other; }

AnimatedSprite &AnimatedSprite::operator=(const AnimatedSprite &other)
{
    if (this == &other)
        return *this;
    frames_ = other.frames_;
    frameTimeMs_ = other.frameTimeMs_;
    currentFrame_ = 0;
    return *this;
}

bool AnimatedSprite::load(const std::u16string &path, Ms frameTimeMs)
{
    release();
    currentFrame_ = 0;
    frameTimeMs_ = frameTimeMs;
    Surface strip;
    if (!strip.load(path) || strip.height() < 1)
        return false;
    frames_ = std::make_shared<std::vector<Surface>>();
    for (MarkedRuns runs(strip, MarkedRuns::Marks::InColumn0); !runs.isPastEnd(); runs.next())
        frames_->push_back(runs.cut());
    return true;
}

void AnimatedSprite::start(Tick tick, std::int32_t loops)
{
    // Kept: the frame stays. Going back from it to the first one counts as the end of a loop.
    startTick_ = tick;
    loopsLeft_ = loops;
}

void AnimatedSprite::update(Tick tick)
{
    const std::int32_t count = frameCount();
    if (frameTimeMs_ == 0 || count < 1 || loopsLeft_ == 0)
        return;
    const std::int32_t previous = currentFrame_;
    const std::int32_t index = msBetween(startTick_, tick) / frameTimeMs_ % count;
    currentFrame_ = index;
    // Kept: only a step back that is seen counts. A single frame never steps back, and whole rounds between
    // two updates go unnoticed.
    if (previous > index && loopsLeft_ > 0)
        --loopsLeft_;
    // Kept: a tick before the start gives a negative index, and that has ended a loop by now.
    if (index < 0)
        currentFrame_ = 0;
}

void AnimatedSprite::setColourKey(Pixel colour)
{
    if (!frames_)
        return;
    for (Surface &frame : *frames_)
        frame.setColourKey(colour);
}

void AnimatedSprite::draw(Surface &target, std::int32_t x, std::int32_t y) const
{
    if (isVisible())
        frame(currentFrame_).blitTo(target, x, y);
}

void AnimatedSprite::drawCentred(Surface &target, std::int32_t x, std::int32_t y) const
{
    if (isVisible())
        frame(currentFrame_).blitCentredTo(target, x, y);
}

} // namespace mygame
