#pragma once

namespace mygame
{

class Event;

/// Receives the events that it is subscribed to. Never destroyed through this interface.
class EventListener
{
public:
    /// @return true to keep the event from the listeners subscribed later.
    virtual bool onEvent(const Event &event) = 0;

protected:
    ~EventListener() = default;
};

} // namespace mygame
