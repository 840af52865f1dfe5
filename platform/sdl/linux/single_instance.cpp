#include "platform/sdl/linux/single_instance.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace platform
{
namespace
{

/// The display in use: X11's without the screen on it, which makes no other display.
std::string displayName()
{
    const auto variable = [](const char *name) {
        const char *value = std::getenv(name);
        return std::string(value ? value : "");
    };
    const std::string wayland = variable("WAYLAND_DISPLAY");
    const std::string x11 = variable("DISPLAY");
    const std::size_t screen = x11.find('.', x11.rfind(':') + 1);
    return wayland.empty() ? x11.substr(0, screen) : wayland;
}

/// A name that belongs to the user and the display, and to no file.
struct Address {
    sockaddr_un name{};
    socklen_t length;

    Address()
    {
        const std::string text = "mygame-" + std::to_string(getuid()) + '-' + displayName();
        name.sun_family = AF_UNIX;
        // The leading zero makes it abstract: it is gone with the process and no file stays behind.
        const std::size_t used = text.copy(name.sun_path + 1, sizeof name.sun_path - 1);
        length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + used);
    }

    const sockaddr *get() const { return reinterpret_cast<const sockaddr *>(&name); }
};

int openSocket() { return ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

} // namespace

SingleInstance::~SingleInstance()
{
    if (socket_ != kNone)
        close(socket_);
}

bool SingleInstance::isOtherRunning()
{
    if (socket_ != kNone)
        return false;
    socket_ = openSocket();
    const Address address;
    if (socket_ == kNone || bind(socket_, address.get(), address.length) == 0)
        return false;
    const bool taken = errno == EADDRINUSE;
    close(socket_);
    socket_ = kNone;
    return taken;
}

void SingleInstance::raiseOther()
{
    constexpr char kRaise[] = "raise";
    const int sender = openSocket();
    if (sender == kNone)
        return;
    const Address address;
    sendto(sender, kRaise, sizeof kRaise, 0, address.get(), address.length);
    close(sender);
}

bool SingleInstance::takeRaiseRequest()
{
    char request = 0;
    bool requested = false;
    while (socket_ != kNone && recv(socket_, &request, sizeof request, 0) >= 0)
        requested = true;
    return requested;
}

} // namespace platform
