#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <utility>

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

/// Receives the events that it is subscribed to. Never destroyed through this interface.
class EventListener
{
public:
    /// @return true to keep the event from the listeners subscribed later.
    virtual bool onEvent(const Event &event) = 0;

protected:
    ~EventListener() = default;
};

/// Carries events from whoever posts them to the listeners of their type: first in, first out, and only when
/// the queue is delivered.
class EventBus
{
public:
    /// The one bus of the process, made at the first call and never destroyed.
    static EventBus &instance();

    /// Queues an event, not null, for the next delivery.
    void post(std::unique_ptr<Event> event);

    /// Makes an event of a type and queues it.
    template <class EventClass, class... Arguments> void post(Arguments &&...arguments)
    {
        post(std::make_unique<EventClass>(std::forward<Arguments>(arguments)...));
    }

    /// Lets a listener receive the events of a type, after those that subscribed before, and once for each
    /// subscription. There is no way back: the listener must outlive the last delivery.
    void subscribe(std::int32_t type, EventListener *listener);

    /// Delivers and destroys all that is queued, including what listeners post meanwhile. Not to be called by
    /// a listener.
    void dispatchAll();

    /// Forgets all listeners and what is queued, for a program that another one follows in the same process.
    void clear();

    /// Events that wait for delivery.
    std::size_t waiting() const { return queue_.size(); }

private:
    void deliver(const Event &event) const;

    std::list<std::unique_ptr<Event>> queue_;
    std::multimap<std::int32_t, EventListener *> subscribers_;
};

} // namespace mygame
