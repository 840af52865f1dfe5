#include "platform/sdl/windows/single_instance.h"

#include <string>
#include <windows.h>

namespace platform
{
namespace
{

/// A name that belongs to the user and, being local, to the session.
std::wstring eventName()
{
    constexpr DWORD kLongestUserName = 256;
    wchar_t user[kLongestUserName + 1] = L"";
    DWORD size = kLongestUserName + 1;
    GetUserNameW(user, &size);
    return std::wstring(L"Local\\mygame-") + user;
}

} // namespace

SingleInstance::~SingleInstance()
{
    if (event_)
        CloseHandle(event_);
}

bool SingleInstance::isOtherRunning()
{
    if (event_)
        return false;
    event_ = CreateEventW(nullptr, FALSE, FALSE, eventName().c_str());
    if (!event_ || GetLastError() != ERROR_ALREADY_EXISTS)
        return false;
    // At once: the name lives as long as anybody holds it.
    CloseHandle(event_);
    event_ = nullptr;
    return true;
}

void SingleInstance::raiseOther()
{
    HANDLE event = OpenEventW(EVENT_MODIFY_STATE, FALSE, eventName().c_str());
    if (!event)
        return;
    // The system lets nobody else come to the front than whom the player has just started, or whom that one
    // lets.
    AllowSetForegroundWindow(ASFW_ANY);
    SetEvent(event);
    CloseHandle(event);
}

bool SingleInstance::takeRaiseRequest() { return event_ && WaitForSingleObject(event_, 0) == WAIT_OBJECT_0; }

} // namespace platform
