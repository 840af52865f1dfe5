#include "shell/display.h"

#include <cstddef>
#include <cstring>

#include "shell/log.h"

namespace mygame
{
namespace
{

constexpr std::int32_t kPixelBytes = sizeof(Pixel);
constexpr std::int32_t kPixelBits = 16;

/// The log's numbers are signed; what is too large for that shows as negative.
void logUnsigned(std::uint32_t value) { logNumber(static_cast<std::int32_t>(value)); }

} // namespace

Display::Display(platform::HWND window)
{
    logText("Opening display...\n");
    if (platform::GXOpenDisplay(window, platform::GX_FULLSCREEN) == 0) {
        logText("Error");
        logUnsigned(platform::GetLastError());
        return;
    }
    const platform::GXDisplayProperties found = platform::GXGetDisplayProperties();
    properties_ = {found.cxWidth, found.cyHeight, found.cbxPitch, found.cbyPitch, found.cBPP, found.ffFormat};
    logProperties();
    logText(platform::GXIsDisplayDRAMBuffer() ? "Nonstandard display\n" : "Standard display\n");
    backBuffer_.create(static_cast<std::int32_t>(properties_.width),
                       static_cast<std::int32_t>(properties_.height));
}

Display::~Display() { platform::GXCloseDisplay(); }

void Display::logProperties() const
{
    logText("Display properties:\n");
    // Kept: without a space, unlike the others.
    logText("Screen Width:");
    logUnsigned(properties_.width);
    logText("\nScreen Height: ");
    logUnsigned(properties_.height);
    logText("\nBPP: ");
    logNumber(properties_.bitsPerPixel);
    logText("\nFormat: ");
    logUnsigned(properties_.formatFlags);
    logText("\n");
}

bool Display::beginDraw()
{
    frameBuffer_ = platform::GXBeginDraw();
    return frameBuffer_ != nullptr;
}

int Display::endDraw()
{
    if (properties_.bitsPerPixel == kPixelBits)
        copyToFrameBuffer();
    return platform::GXEndDraw();
}

void Display::copyToFrameBuffer() const
{
    const std::int32_t width = backBuffer_.width();
    const Pixel *source = backBuffer_.pixels();
    if (properties_.xPitch == kPixelBytes && properties_.yPitch == width * kPixelBytes) {
        std::memcpy(frameBuffer_, source, static_cast<std::size_t>(backBuffer_.pixelCount()) * sizeof(Pixel));
        return;
    }
    auto *row = static_cast<std::byte *>(frameBuffer_);
    for (std::int32_t y = 0; y < backBuffer_.height(); ++y, row += properties_.yPitch) {
        std::byte *pixel = row;
        for (std::int32_t x = 0; x < width; ++x, pixel += properties_.xPitch)
            std::memcpy(pixel, source++, sizeof(Pixel));
    }
}

} // namespace mygame
