#pragma once

#include <cstdint>

namespace platform
{

/// Milliseconds for which the machine has been running, sleep included.
std::uint64_t machineTimeMs();

} // namespace platform
