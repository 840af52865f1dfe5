#include "graphics/share_count.h"

namespace mygame
{

void ShareCount::begin()
{
    leave();
    count = new std::uint32_t(1);
}

void ShareCount::join(const ShareCount &other)
{
    leave();
    count = other.count;
    if (count)
        ++*count;
}

bool ShareCount::leave()
{
    if (!count)
        return false;
    std::uint32_t *left = count;
    count = nullptr;
    if (--*left != 0)
        return false;
    delete left;
    return true;
}

} // namespace mygame
