#include "shell/event_bus.h"

#include <utility>

namespace mygame
{

EventBus &EventBus::instance()
{
    static auto *bus = new EventBus;
    return *bus;
}

void EventBus::post(std::unique_ptr<Event> event) { queue_.push_back(std::move(event)); }

void EventBus::subscribe(std::int32_t type, EventListener *listener) { subscribers_.emplace(type, listener); }

void EventBus::dispatchAll()
{
    // A list: what listeners post meanwhile is appended and reached, too.
    for (auto &event : queue_) {
        deliver(*event);
        event.reset();
    }
    queue_.clear();
}

void EventBus::clear()
{
    subscribers_.clear();
    queue_.clear();
}

void EventBus::deliver(const Event &event) const
{
    const auto [first, last] = subscribers_.equal_range(event.type);
    for (auto entry = first; entry != last; ++entry) {
        if (entry->second->onEvent(event))
            return;
    }
}

} // namespace mygame
