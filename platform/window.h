/// The window system: the program's window, its messages and the surroundings that a full-screen program
/// hides.
#pragma once

#include <cstdint>

namespace platform
{

/// An integer used as a truth value; 0 is false.
using BOOL = int;

/// A window of any program. Opaque: a handle is compared, passed on, or marked by its lowest bit.
struct Window;
using HWND = Window *;

/// The running program, as its entry function received it. Opaque, and null on most devices.
struct Instance;
using HINSTANCE = Instance *;

/// A drawing object of the stock, used only as a window's background.
struct StockObject;

constexpr std::uint32_t WM_ACTIVATE = 0x0006;
constexpr std::uint32_t WM_SETFOCUS = 0x0007;
constexpr std::uint32_t WM_KILLFOCUS = 0x0008;
constexpr std::uint32_t WM_QUERYENDSESSION = 0x0011;
constexpr std::uint32_t WM_QUIT = 0x0012;
constexpr std::uint32_t WM_KEYDOWN = 0x0100;
constexpr std::uint32_t WM_KEYUP = 0x0101;
constexpr std::uint32_t WM_MOUSEMOVE = 0x0200;
constexpr std::uint32_t WM_LBUTTONDOWN = 0x0201;
constexpr std::uint32_t WM_LBUTTONUP = 0x0202;

constexpr std::uint32_t CS_VREDRAW = 1;
constexpr std::uint32_t CS_HREDRAW = 2;
constexpr std::uint32_t WS_VISIBLE = 0x10000000;
constexpr std::uint32_t PM_REMOVE = 1;
constexpr int WHITE_BRUSH = 0;
constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
constexpr int SW_HIDE = 0;
constexpr int SW_SHOW = 5;

/// Flags of `SetFullScreen`: what surrounds a window is shown or hidden.
constexpr std::uint32_t SHFS_SHOWTASKBAR = 0x01;
constexpr std::uint32_t SHFS_HIDETASKBAR = 0x02;
constexpr std::uint32_t SHFS_SHOWSIPBUTTON = 0x04;
constexpr std::uint32_t SHFS_HIDESIPBUTTON = 0x08;
constexpr std::uint32_t SHFS_SHOWSTARTICON = 0x10;
constexpr std::uint32_t SHFS_HIDESTARTICON = 0x20;

/// One window message. The meaning of both parameters depends on `message`.
struct MSG {
    HWND hwnd;
    std::uint32_t message;
    std::uint32_t wParam;
    std::int32_t lParam;
};

using WNDPROC = std::int32_t (*)(HWND, std::uint32_t, std::uint32_t, std::int32_t);

struct WNDCLASSW {
    std::uint32_t style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    void *hIcon;
    void *hCursor;
    StockObject *hbrBackground;
    const char16_t *lpszMenuName;
    const char16_t *lpszClassName;
};

/// Registers a window class. @return an atom, 0 on failure.
std::uint16_t RegisterClassW(const WNDCLASSW *windowClass);

/// What a window does with a message that nobody handled. @return 0.
std::int32_t DefWindowProcW(HWND window, std::uint32_t message, std::uint32_t wParam, std::int32_t lParam);

/// A drawing object that need not be made or deleted.
StockObject *GetStockObject(int index);

/// Creates a window of a registered class. @return null on failure.
/// Positions and sizes are in pixels of the screen that `GetSystemMetrics` describes.
HWND CreateWindowExW(std::uint32_t extendedStyle, const char16_t *className, const char16_t *title,
                     std::uint32_t style, int x, int y, int width, int height, HWND parent, void *menu,
                     HINSTANCE instance, void *creationData);

/// SM_CXSCREEN or SM_CYSCREEN: the screen's width or height in pixels. @return 0 for anything else.
int GetSystemMetrics(int index);

/// Shows or hides a window; a null window does nothing. @return whether it was visible before.
BOOL ShowWindow(HWND window, int command);

/// Moves and sizes a window, in pixels of the screen.
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);

/// Lets a window draw at once what it owes.
BOOL UpdateWindow(HWND window);

/// A top-level window by class and title; a null title matches any. @return null when there is none.
/// Asking for the program's own class also claims the name for this process: of two programs that start at
/// the same moment exactly one is answered null.
HWND FindWindowW(const char16_t *className, const char16_t *title);

/// Brings a window, also one of another process, to the front. The handle's lowest bit is disregarded.
BOOL SetForegroundWindow(HWND window);

/// The window that has the user's attention; null when it is not one of this program's.
HWND GetForegroundWindow();

/// Takes the oldest waiting message of any window, without ever waiting itself. The filters must be 0 and the
/// mode PM_REMOVE. @return 0 when no message waits.
BOOL PeekMessageW(MSG *message, HWND window, std::uint32_t first, std::uint32_t last, std::uint32_t mode);

/// Adds the message of the character that a key message types, where there is one. Nothing here needs them.
BOOL TranslateMessage(const MSG *message);

/// Hands a message to its window's procedure.
std::int32_t DispatchMessageW(const MSG *message);

/// The shell's full-screen control: shows or hides the task bar, input button and Start icon around a window
/// (which may be null), by SHFS_ flags.
BOOL SetFullScreen(HWND window, std::uint32_t flags);

} // namespace platform
