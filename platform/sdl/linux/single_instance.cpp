#include "platform/sdl/linux/single_instance.h"

#include <cerrno>
#include <cstddef>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace platform
{
namespace
{

/// A name that belongs to the user and to no file.
struct Address {
    sockaddr_un name{};
    socklen_t length;

    Address()
    {
        const std::string text = "mygame-" + std::to_string(getuid());
        name.sun_family = AF_UNIX;
        // The leading zero makes it abstract: it is gone with the process and no file stays behind.
        text.copy(name.sun_path + 1, sizeof name.sun_path - 1);
        length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + text.size());
    }

    const sockaddr *get() const { return reinterpret_cast<const sockaddr *>(&name); }
};

int openSocket() { return ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

} // namespace

SingleInstance::~SingleInstance()
{
    if (socket != kNone)
        close(socket);
}

bool SingleInstance::isOtherRunning()
{
    if (socket != kNone)
        return false;
    socket = openSocket();
    const Address address;
    if (socket == kNone || bind(socket, address.get(), address.length) == 0)
        return false;
    const bool taken = errno == EADDRINUSE;
    close(socket);
    socket = kNone;
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
    while (socket != kNone && recv(socket, &request, sizeof request, 0) >= 0)
        requested = true;
    return requested;
}

} // namespace platform
