#include "platform/frame_buffer.h"

#include "platform/calls/call_notes.h"
#include "platform/device.h"

namespace platform
{
namespace
{

std::uint32_t lastError = 0;

} // namespace

int GXOpenDisplay(HWND window, std::uint32_t flags)
{
    note("GXOpenDisplay", window, flags);
    lastError = device().openDisplay();
    return lastError == 0 ? 1 : 0;
}

int GXCloseDisplay()
{
    note("GXCloseDisplay");
    device().closeDisplay();
    return 1;
}

GXDisplayProperties GXGetDisplayProperties() { return device().displayProperties(); }

BOOL GXIsDisplayDRAMBuffer() { return device().isStandardDisplay() ? 0 : 1; }

void *GXBeginDraw() { return device().beginDraw(); }

int GXEndDraw()
{
    device().endDraw();
    return 1;
}

// Buttons arrive as messages in any case, and display and keyboard are shared with other programs.

int GXOpenInput()
{
    note("GXOpenInput");
    return 1;
}

int GXSuspend()
{
    note("GXSuspend");
    return 1;
}

int GXResume()
{
    note("GXResume");
    return 1;
}

std::uint32_t GetLastError() { return lastError; }

} // namespace platform
