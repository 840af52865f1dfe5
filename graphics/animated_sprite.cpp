#include "graphics/animated_sprite.h"

namespace mygame
{

AnimatedSprite::AnimatedSprite(const AnimatedSprite &other) { *this = other; }

AnimatedSprite &AnimatedSprite::operator=(const AnimatedSprite &other)
{
    if (this == &other)
        return *this;
    release();
    shareCount.join(other.shareCount);
    frameTimeMs = other.frameTimeMs;
    frameCount_ = other.frameCount_;
    frames = other.frames;
    currentFrame_ = 0;
    return *this;
}

AnimatedSprite::~AnimatedSprite() { release(); }

bool AnimatedSprite::load(const std::u16string &path, Ms newFrameTimeMs)
{
    release();
    shareCount.begin();
    currentFrame_ = 0;
    frameTimeMs = newFrameTimeMs;
    Surface strip;
    if (!strip.load(path) || strip.height() < 1)
        return false;
    cutFrames(strip);
    return true;
}

void AnimatedSprite::cutFrames(const Surface &strip)
{
    const std::int32_t height = strip.height();
    const Pixel marker = strip.pixelAt(0, 0);
    std::int32_t top = 0;
    while (top < height) {
        std::int32_t end = top;
        while (end < height && strip.pixelAt(0, end) == marker)
            ++end;
        auto *frame = new Surface;
        frame->create(strip.width() - 1, end - top);
        strip.blitTo(*frame, -1, -top);
        frames.push_back(frame);
        top = end + 1;
        while (top < height && strip.pixelAt(0, top) != marker)
            ++top;
    }
    frameCount_ = static_cast<std::int32_t>(frames.size());
}

void AnimatedSprite::release()
{
    if (shareCount.leave()) {
        for (Surface *frame : frames)
            delete frame;
    }
    frames.clear();
    frameCount_ = 0;
}

void AnimatedSprite::start(Tick tick, std::int32_t loops)
{
    startTick = tick;
    loopsLeft = loops;
}

void AnimatedSprite::update(Tick tick)
{
    if (frameTimeMs == 0 || frameCount_ < 1 || loopsLeft == 0)
        return;
    const std::int32_t previous = currentFrame_;
    const std::int32_t index = msBetween(startTick, tick) / frameTimeMs % frameCount_;
    currentFrame_ = index;
    if (previous > index && loopsLeft > 0)
        --loopsLeft;
    // A tick before the start gives a negative index, which has ended a loop by now.
    if (index < 0)
        currentFrame_ = 0;
}

void AnimatedSprite::setColourKey(Pixel colour)
{
    for (Surface *frame : frames)
        frame->setColourKey(colour);
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
