#include "platform/frame_buffer.h"

#include "platform/virtual/virtual_device.h"

namespace platform
{
namespace
{

VirtualDevice &device() { return VirtualDevice::instance(); }

} // namespace

int GXOpenDisplay(HWND window, std::uint32_t flags)
{
    device().note(std::string("GXOpenDisplay ") + (window ? "window " : "null ") + std::to_string(flags));
    return device().displayError ? 0 : 1;
}

int GXCloseDisplay()
{
    device().note("GXCloseDisplay");
    return 1;
}

GXDisplayProperties GXGetDisplayProperties() { return device().display; }

BOOL GXIsDisplayDRAMBuffer() { return device().standardDisplay ? 0 : 1; }

void *GXBeginDraw()
{
    if (device().displayError || !device().frameBufferOn)
        return nullptr;
    return device().topLeft();
}

int GXEndDraw()
{
    if (device().onFrame)
        device().onFrame();
    device().advance(device().frameCostMs);
    return 1;
}

int GXOpenInput()
{
    device().note("GXOpenInput");
    return 1;
}

int GXSuspend()
{
    device().note("GXSuspend");
    return 1;
}

int GXResume()
{
    device().note("GXResume");
    return 1;
}

std::uint32_t GetLastError() { return device().displayError.value_or(0); }

} // namespace platform
