/// The frame buffer and the hardware buttons, as the device's game interface offers them.
#pragma once

#include <cstdint>

#include "platform/window.h"

namespace platform
{

/// Flag of `GXOpenDisplay`: the whole screen is wanted.
constexpr std::uint32_t GX_FULLSCREEN = 1;

/// Bit of `ffFormat`: a pixel holds 5 bits of red, 6 of green, 5 of blue.
constexpr std::uint32_t kfDirect565 = 0x80;

/// How the frame buffer is laid out. Pitches are in bytes and may be negative on a rotated display.
struct GXDisplayProperties {
    std::uint32_t cxWidth;
    std::uint32_t cyHeight;
    std::int32_t cbxPitch;
    std::int32_t cbyPitch;
    std::int32_t cBPP;
    std::uint32_t ffFormat;
};

/// Opens the display for a window. @return 0 on failure; `GetLastError` then says why.
int GXOpenDisplay(HWND window, std::uint32_t flags);

/// Gives the display back at the end. Harmless when it could not be opened.
int GXCloseDisplay();

/// Only meaningful while the display is open.
GXDisplayProperties GXGetDisplayProperties();

/// @return non-zero when the frame buffer is ordinary memory that the display copies from.
BOOL GXIsDisplayDRAMBuffer();

/// Locks the frame buffer. @return the address of its top-left pixel, or null when it cannot be had now.
void *GXBeginDraw();

/// Releases the frame buffer and shows what was written. Waits for the display's next refresh where the
/// device has one, and samples the clock.
int GXEndDraw();

/// Makes the hardware buttons arrive as ordinary key messages.
int GXOpenInput();

/// Gives display and buttons back while another program is in front, and takes them again.
int GXSuspend();
int GXResume();

/// The number of the last system error of this thread.
std::uint32_t GetLastError();

} // namespace platform
