#include "shell/event_bus.h"

#include <utility>

namespace mygame
{

EventBus &EventBus::instance()
{
    static auto *bus = new EventBus;
    return *bus;
}

void EventBus::post(std::unique_ptr<Event> event) { queue.push_back(std::move(event)); }

void EventBus::subscribe(std::int32_t type, EventListener *listener) { subscribers.emplace(type, listener); }

void EventBus::dispatchAll()
{
    // A list: what listeners post meanwhile is appended and reached, too.
    for (auto &event : queue) {
        deliver(*event);
        event.reset();
    }
    queue.clear();
}

void EventBus::deliver(const Event &event) const
{
    const auto [first, last] = subscribers.equal_range(event.type);
    for (auto entry = first; entry != last; ++entry) {
        if (entry->second->onEvent(event))
            return;
    }
}

} // namespace mygame
