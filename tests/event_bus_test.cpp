#include "shell/event_bus.h"

#include <string>

#include <gtest/gtest.h>

namespace mygame::tests
{
namespace
{

/// Notes what happens to events: "A1 " when listener A receives type 1, "~1 " when one of type 1 is
/// destroyed.
std::string story;

struct NotedEvent : Event {
    using Event::Event;
    ~NotedEvent() override { story += '~' + std::to_string(type) + ' '; }
};

/// Consumes one type, and answers one by posting another.
struct NotingListener final : EventListener {
    NotingListener(char name, EventBus &bus) : name(name), bus(bus) {}

    bool onEvent(const Event &event) override
    {
        story += name + std::to_string(event.type) + ' ';
        if (event.type == answered)
            bus.post(std::make_unique<NotedEvent>(answer));
        return event.type == consumed;
    }

    char name;
    EventBus &bus;
    std::int32_t consumed = 0, answered = 0, answer = 0;
};

struct EventBusTest : testing::Test {
    EventBusTest()
    {
        for (const std::int32_t type : {2, 1, -3}) {
            bus.subscribe(type, &b);
            bus.subscribe(type, &a);
        }
    }

    std::string storyOf(std::initializer_list<std::int32_t> types)
    {
        story.clear();
        for (const std::int32_t type : types)
            bus.post(std::make_unique<NotedEvent>(type));
        EXPECT_EQ(story, "") << "delivered too early";
        bus.dispatchAll();
        return story;
    }

    EventBus bus;
    NotingListener a{'A', bus}, b{'B', bus};
};

TEST_F(EventBusTest, FinishesEachEventBeforeTheNextInOrderOfSubscription)
{
    bus.subscribe(1, &b);
    EXPECT_EQ(storyOf({7, 1, -3, 2}), "~7 B1 A1 B1 ~1 B-3 A-3 ~-3 B2 A2 ~2 ");
}

TEST_F(EventBusTest, DeliversWhatListenersPostBehindTheRestUnlessConsumed)
{
    b.answered = 1, b.answer = -3;
    a.answered = -3, a.answer = 2;
    EXPECT_EQ(storyOf({1, 2}), "B1 A1 ~1 B2 A2 ~2 B-3 A-3 ~-3 B2 A2 ~2 ");
    b.consumed = -3;
    EXPECT_EQ(storyOf({1, 2}), "B1 A1 ~1 B2 A2 ~2 B-3 ~-3 ") << "consumed before the later listener";
}

} // namespace
} // namespace mygame::tests
