#include "platform/window.h"

#include <string_view>

#include "platform/calls/call_notes.h"
#include "platform/common/device_path.h"
#include "platform/device.h"

namespace platform
{

struct Window {
    const char *name;
};
static_assert(alignof(Window) > 1, "the lowest bit of a handle can carry a mark");

namespace
{

/// The bar that a full-screen program hides. A desktop's is not ours to hide.
constexpr std::u16string_view kTaskBarClass = u"HHTaskbar";

Window programWindow{"window"};
Window otherCopyWindow{"copy"};
Window taskBarWindow{"taskbar"};

HWND withoutMark(HWND window)
{
    return reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(window) & ~std::uintptr_t{1});
}

} // namespace

std::string noteText(HWND window)
{
    if (!window)
        return "null";
    HWND unmarked = withoutMark(window);
    return std::string(unmarked->name) + (unmarked == window ? "" : "|1");
}

std::string noteText(const char16_t *text) { return text ? common::toHostPath(text) : "null"; }

std::uint16_t RegisterClassW(const WNDCLASSW *windowClass)
{
    note("RegisterClassW", windowClass->lpszClassName, windowClass->style);
    return 1;
}

std::int32_t DefWindowProcW(HWND, std::uint32_t, std::uint32_t, std::int32_t) { return 0; }

StockObject *GetStockObject(int) { return nullptr; }

HWND CreateWindowExW(std::uint32_t extendedStyle, const char16_t *className, const char16_t *title,
                     std::uint32_t style, int x, int y, int width, int height, HWND, void *, HINSTANCE,
                     void *)
{
    note("CreateWindowExW", extendedStyle, className, title, style, x, y, width, height);
    return device().createWindow(common::toHostPath(title)) ? &programWindow : nullptr;
}

int GetSystemMetrics(int index)
{
    const GXDisplayProperties display = device().displayProperties();
    if (index == SM_CXSCREEN)
        return static_cast<int>(display.cxWidth);
    return index == SM_CYSCREEN ? static_cast<int>(display.cyHeight) : 0;
}

BOOL ShowWindow(HWND window, int command)
{
    note("ShowWindow", window, command);
    return window == &programWindow && device().showWindow(command != SW_HIDE) ? 1 : 0;
}

// The device decides where its window is and how large, the whole screen being in it in any case.

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint)
{
    note("MoveWindow", window, x, y, width, height, repaint);
    return 1;
}

BOOL UpdateWindow(HWND window)
{
    note("UpdateWindow", window);
    return 1;
}

BOOL SetFullScreen(HWND window, std::uint32_t flags)
{
    note("SetFullScreen", window, flags);
    return 1;
}

HWND FindWindowW(const char16_t *className, const char16_t *title)
{
    note("FindWindowW", className, title);
    if (className == kTaskBarClass)
        return &taskBarWindow;
    return device().isOtherCopyRunning() ? &otherCopyWindow : nullptr;
}

BOOL SetForegroundWindow(HWND window)
{
    note("SetForegroundWindow", window);
    if (withoutMark(window) == &otherCopyWindow)
        device().raiseOtherCopy();
    else
        device().raiseWindow();
    return 1;
}

HWND GetForegroundWindow() { return device().inForeground() ? &programWindow : nullptr; }

BOOL PeekMessageW(MSG *message, HWND, std::uint32_t, std::uint32_t, std::uint32_t)
{
    return device().poll(*message) ? 1 : 0;
}

BOOL TranslateMessage(const MSG *) { return 0; }

std::int32_t DispatchMessageW(const MSG *message)
{
    note("DispatchMessageW", message->message, message->wParam, message->lParam);
    return DefWindowProcW(message->hwnd, message->message, message->wParam, message->lParam);
}

} // namespace platform
