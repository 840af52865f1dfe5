/// Random numbers: the handheld's own generator, so that a game goes the same way on every device and host.
#pragma once

#include <cstdint>

namespace platform
{

/// Starts the sequence that belongs to a seed. Until the first call it is that of the seed 1.
void srand(std::uint32_t seed);

/// The next number of the sequence, 0 to 32767.
int rand();

} // namespace platform
