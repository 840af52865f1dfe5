#include "platform/window.h"

#include "platform/common/host_path.h"
#include "platform/virtual/virtual_device.h"

namespace platform
{

struct Window {
    const char *name;
};

namespace
{

constexpr std::u16string_view kTaskBarClass = u"HHTaskbar";

Window programWindow{"window"};
Window otherCopyWindow{"copy"};
Window taskBarWindow{"taskbar"};

VirtualDevice &device() { return VirtualDevice::instance(); }

HWND withoutMark(HWND window)
{
    return reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(window) & ~std::uintptr_t{1});
}

std::string name(HWND window)
{
    if (!window)
        return "null";
    const bool marked = withoutMark(window) != window;
    return withoutMark(window)->name + std::string(marked ? "|1" : "");
}

std::string name(const char16_t *text) { return text ? common::toHostPath(text) : "null"; }

/// Notes a call with its arguments parted by spaces.
template <class... Arguments> void note(const std::string &call, const Arguments &...arguments)
{
    if (!device().recordCalls)
        return;
    const auto text = [](const auto &argument) {
        if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(argument)>>)
            return std::to_string(argument);
        else
            return name(argument);
    };
    device().note((call + ... + (' ' + text(arguments))));
}

} // namespace

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
    return device().windowFails ? nullptr : &programWindow;
}

int GetSystemMetrics(int index)
{
    if (index == SM_CXSCREEN)
        return static_cast<int>(device().display.cxWidth);
    return index == SM_CYSCREEN ? static_cast<int>(device().display.cyHeight) : 0;
}

BOOL ShowWindow(HWND window, int command)
{
    note("ShowWindow", window, command);
    return 0;
}

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

HWND FindWindowW(const char16_t *className, const char16_t *title)
{
    note("FindWindowW", className, title);
    if (className == kTaskBarClass)
        return &taskBarWindow;
    return device().copyRunning ? &otherCopyWindow : nullptr;
}

BOOL SetForegroundWindow(HWND window)
{
    note("SetForegroundWindow", window);
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
    note("DispatchMessageW", message->message);
    return DefWindowProcW(message->hwnd, message->message, message->wParam, message->lParam);
}

BOOL SetFullScreen(HWND window, std::uint32_t flags)
{
    note("SetFullScreen", window, flags);
    return 1;
}

} // namespace platform
