#pragma once

struct SDL_Window;

namespace platform
{

/// Keeps the process alive when the server of a window's display goes, as it does at the end of a session.
/// Without this the process would exit in the middle of a call, and in doing so call that server again.
void surviveLossOfDisplay(SDL_Window *window);

/// Whether that happened. Then nothing that belongs to the display may be used or destroyed any more.
bool isDisplayLost();

} // namespace platform
