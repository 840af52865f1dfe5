#include "platform/sdl/message_queue.h"

namespace platform
{

void MessageQueue::post(std::uint32_t message, std::uint32_t wParam, std::int32_t lParam)
{
    messages_.push_back({nullptr, message, wParam, lParam});
}

void MessageQueue::postStylus(std::uint32_t message, Point pixel)
{
    constexpr std::uint32_t MK_LBUTTON = 1;
    post(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, pixel.y << 16 | pixel.x);
}

bool MessageQueue::take(MSG &message)
{
    if (messages_.empty())
        return false;
    message = messages_.front();
    messages_.pop_front();
    return true;
}

} // namespace platform
