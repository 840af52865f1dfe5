#include "platform/device.h"

namespace platform
{
namespace
{

Device *deviceInUse = nullptr;

} // namespace

void useDevice(Device &device) { deviceInUse = &device; }

Device &device() { return *deviceInUse; }

} // namespace platform
