/// `mygame`: the program in a window.
#include "platform/sdl/sdl_device.h"
#include "shell/startup.h"

int main()
{
    platform::SdlDevice device;
    platform::useDevice(device);
    return mygame::startUp(nullptr, nullptr, u"", platform::SW_SHOW);
}
