#include "platform/window.h"

#include <string_view>

#include "platform/common/host_path.h"
#include "platform/desktop/desktop_device.h"

namespace platform
{

/// Aligned, so that the lowest bit of a handle can carry a mark.
struct alignas(2) Window {
};

namespace
{

/// The bar that a full-screen program hides on the handheld. A desktop's is not ours to hide.
constexpr std::u16string_view kTaskBarClass = u"HHTaskbar";

Window programWindow;
Window otherCopyWindow;

DesktopDevice &device() { return DesktopDevice::instance(); }

HWND withoutMark(HWND window)
{
    return reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(window) & ~std::uintptr_t{1});
}

} // namespace

std::uint16_t RegisterClassW(const WNDCLASSW *) { return 1; }

std::int32_t DefWindowProcW(HWND, std::uint32_t, std::uint32_t, std::int32_t) { return 0; }

StockObject *GetStockObject(int) { return nullptr; }

HWND CreateWindowExW(std::uint32_t, const char16_t *, const char16_t *title, std::uint32_t, int, int, int,
                     int, HWND, void *, HINSTANCE, void *)
{
    // Not shown yet: it would be empty until the first frame.
    return device().createWindow(common::toHostPath(title).c_str()) ? &programWindow : nullptr;
}

int GetSystemMetrics(int index)
{
    if (index == SM_CXSCREEN)
        return kScreenSize.width;
    return index == SM_CYSCREEN ? kScreenSize.height : 0;
}

BOOL ShowWindow(HWND window, int command)
{
    return window == &programWindow && device().window.show(command != SW_HIDE) ? 1 : 0;
}

// The desktop decides where the window is and how large, the handheld's screen being in it in any case.
BOOL MoveWindow(HWND, int, int, int, int, BOOL) { return 1; }
BOOL UpdateWindow(HWND) { return 1; }
BOOL SetFullScreen(HWND, std::uint32_t) { return 1; }

HWND FindWindowW(const char16_t *className, const char16_t *)
{
    if (className == kTaskBarClass)
        return nullptr;
    return device().singleInstance.isOtherRunning() ? &otherCopyWindow : nullptr;
}

BOOL SetForegroundWindow(HWND window)
{
    if (withoutMark(window) == &otherCopyWindow)
        SingleInstance::raiseOther();
    else
        device().window.raise();
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
    return DefWindowProcW(message->hwnd, message->message, message->wParam, message->lParam);
}

} // namespace platform
