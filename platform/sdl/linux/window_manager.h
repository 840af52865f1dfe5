#pragma once

struct SDL_Window;

namespace platform
{

/// Whether something moves, sizes and layers the windows when a program asks for that. A bare X server, as in
/// a kiosk, has nothing that would make a window fill the screen.
bool hasWindowManager(SDL_Window *window);

} // namespace platform
