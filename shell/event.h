#pragma once

#include <cstdint>

namespace mygame
{

/// Something that happened in the game. Subclasses add what belongs to their type.
class Event
{
public:
    explicit Event(std::int32_t type) : type(type) {}
    virtual ~Event() = default;

    const std::int32_t type;
};

} // namespace mygame
