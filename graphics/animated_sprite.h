#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "graphics/surface.h"
#include "graphics/ticks.h"

namespace mygame
{

/// A short animation of equally timed frames, cut from one picture. Copies share the frames, and with them
/// the colour key, but each has its own timing.
///
/// In the picture the frames are stacked from the top and marked in column 0, as `MarkedRuns` cuts them.
class AnimatedSprite
{
public:
    /// Plays for ever.
    static constexpr std::int32_t kLoopForEver = -1;

    AnimatedSprite() = default;
    AnimatedSprite(const AnimatedSprite &other);
    /// Shares the other's frames, from the first one on. The copy is to be started.
    AnimatedSprite &operator=(const AnimatedSprite &other);
    ~AnimatedSprite() = default;

    /// Cuts the frames from a picture file, each to be shown for frameTimeMs. The path is a full one.
    /// @return false, without frames, when the picture cannot be loaded or has no rows.
    bool load(const std::u16string &path, Ms frameTimeMs);

    /// Gives up this sprite's share of the frames; it draws nothing then.
    void release() { frames_.reset(); }

    /// Plays from `tick` on: `loops` times, for ever when that is negative.
    void start(Tick tick, std::int32_t loops);

    /// Chooses the frame for a tick. A step from a later frame back to an earlier one ends a loop.
    void update(Tick tick);

    /// True when no loops are left, as before the first `start`.
    bool isFinished() const { return loopsLeft_ == 0; }

    /// Sets the key on every frame, for all copies.
    void setColourKey(Pixel colour);

    /// Draws the current frame, its top-left corner at (x, y); nothing when finished or without frames.
    void draw(Surface &target, std::int32_t x, std::int32_t y) const;

    /// As `draw`, centred on (x, y).
    void drawCentred(Surface &target, std::int32_t x, std::int32_t y) const;

    std::int32_t frameCount() const { return frames_ ? static_cast<std::int32_t>(frames_->size()) : 0; }
    std::int32_t currentFrame() const { return currentFrame_; }
    /// Frame `index`, from 0 to frameCount - 1.
    const Surface &frame(std::int32_t index) const { return (*frames_)[static_cast<std::size_t>(index)]; }

private:
    bool isVisible() const { return frameCount() > 0 && loopsLeft_ != 0; }

    std::shared_ptr<std::vector<Surface>> frames_; ///< Null without frames.
    Ms frameTimeMs_ = 0;
    std::int32_t currentFrame_ = 0;
    Tick startTick_ = 0;
    std::int32_t loopsLeft_ = 0;
};

} // namespace mygame
