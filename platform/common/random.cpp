#include "platform/random.h"

namespace platform
{
namespace
{

constexpr std::uint32_t kFactor = 214013;
constexpr std::uint32_t kAddend = 2531011;
/// A number is the state's bits 16 to 30.
constexpr std::uint32_t kNumberShift = 16;
constexpr std::uint32_t kNumberMask = 0x7FFF;

std::uint32_t state = 1;

} // namespace

void srand(std::uint32_t seed) { state = seed; }

int rand()
{
    state = state * kFactor + kAddend;
    return static_cast<int>(state >> kNumberShift & kNumberMask);
}

} // namespace platform
