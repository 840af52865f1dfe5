#pragma once

#include <cstdint>

namespace mygame
{

/// The number of objects that hold one shared resource, counted on the heap. Copies of a holder share the
/// counter; the last one to leave deletes the resource. Not for use by several threads.
class ShareCount
{
public:
    ShareCount() = default;
    ShareCount(const ShareCount &) = delete;
    ShareCount &operator=(const ShareCount &) = delete;
    ~ShareCount() { leave(); }

    /// Starts counting a new resource with one holder. A share held before is left first.
    void begin();

    /// Holds what the other holds, nothing if it holds nothing. A share held before is left first.
    void join(const ShareCount &other);

    /// Gives the share up. @return true when that was the last one: the resource is to be deleted now.
    bool leave();

    /// Holders of the resource, this one included; 0 while nothing is held.
    std::uint32_t holders() const { return count ? *count : 0; }

private:
    std::uint32_t *count = nullptr;
};

} // namespace mygame
