#pragma once

#include <cstdint>

#include "graphics/surface.h"
#include "platform/frame_buffer.h"

namespace mygame
{

/// What the device says of its frame buffer; pitches in bytes.
struct DisplayProperties {
    std::uint32_t width;
    std::uint32_t height;
    std::int32_t xPitch;
    std::int32_t yPitch;
    std::int32_t bitsPerPixel;
    std::uint32_t formatFlags;
};

/// The device's frame buffer, and the back buffer of the same size into which every screen draws.
class Display
{
public:
    /// Opens the display for a window and writes what it finds to the log. When that fails the back buffer
    /// stays empty.
    explicit Display(platform::HWND window);
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;
    ~Display();

    /// Locks the frame buffer. @return false when it cannot be had: then nothing is drawn, and `endDraw` is
    /// not called.
    bool beginDraw();

    /// What to draw into between `beginDraw` and `endDraw`. Keeps the last frame's picture.
    Surface &backBuffer() { return backBuffer_; }

    /// Copies the back buffer into the frame buffer and releases that. A frame buffer that is not packed is
    /// written through its pitches, one that has not 16 bits a pixel is left alone. @return the device's
    /// result.
    int endDraw();

private:
    void logProperties() const;
    void copyToFrameBuffer() const;

    DisplayProperties properties_{};
    void *frameBuffer_ = nullptr;
    Surface backBuffer_;
};

} // namespace mygame
