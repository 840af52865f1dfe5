/// The page that the program runs in: what it tells, and what it is told to do.
#pragma once

#include <chrono>

#include "platform/sdl/frame_pacer.h"

struct SDL_Window;

namespace platform
{

/// What the page said last. There is one page.
struct Page {
    /// To be told before the program is called for a refresh: its time, in milliseconds.
    void setRefresh(double time);

    RealTime::Clock::time_point refresh; ///< The time of the refresh that the program was last called for.
    int refreshRate = 0;                 ///< In Hz; 0 until the page has measured it.
    SDL_Window *window = nullptr;        ///< The one that stands for the page; null while there is none.
};

Page &page();

} // namespace platform
