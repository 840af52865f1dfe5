#include "platform/frame_buffer.h"

#include "platform/desktop/desktop_device.h"

namespace platform
{
namespace
{

constexpr std::uint32_t kPixelBytes = sizeof(Frame::value_type);

/// "A device attached to the system is not functioning."
constexpr std::uint32_t ERROR_GEN_FAILURE = 31;

std::uint32_t lastError = 0;

} // namespace

int GXOpenDisplay(HWND, std::uint32_t)
{
    const bool open = DesktopDevice::instance().openDisplay();
    lastError = open ? 0 : ERROR_GEN_FAILURE;
    return open ? 1 : 0;
}

int GXCloseDisplay()
{
    DesktopDevice::instance().closeDisplay();
    return 1;
}

GXDisplayProperties GXGetDisplayProperties()
{
    return {kScreenSize.width, kScreenSize.height, kPixelBytes, kScreenSize.width * kPixelBytes,
            kPixelBytes * 8,   kfDirect565};
}

BOOL GXIsDisplayDRAMBuffer() { return 0; }

void *GXBeginDraw()
{
    Frame *frame = DesktopDevice::instance().frame();
    return frame ? frame->data() : nullptr;
}

int GXEndDraw()
{
    DesktopDevice::instance().endFrame();
    return 1;
}

// The keys arrive as button messages in any case, and display and keyboard are shared with other programs.
int GXOpenInput() { return 1; }
int GXSuspend() { return 1; }
int GXResume() { return 1; }

std::uint32_t GetLastError() { return lastError; }

} // namespace platform
