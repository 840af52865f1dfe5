#include "graphics/keyed_copy.h"

namespace mygame
{

void copyWideKeyed(const KeyedBlock &block)
{
    constexpr std::int32_t kLanes = 8; // What every processor with wide registers has at least.
    copyInColumns<kLanes, 64, kWideBlock>(block);
}

} // namespace mygame
