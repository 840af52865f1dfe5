#pragma once

struct SDL_Window;

namespace platform
{

/// Ends the process quietly, with exit code 0 and what it wrote on disk, when a display's server goes.
/// Without this it would exit with an error in the middle of a call, and in doing so call that server again.
/// To be called before the display is opened.
void endWithDisplay();

/// Keeps the process alive instead when the server of this window's display goes, as it does at the end of a
/// session, so that the program can end in its own way.
void surviveLossOfDisplay(SDL_Window *window);

/// Whether a display that was to be survived was lost. Then nothing that belongs to it may be used or
/// destroyed any more.
bool isDisplayLost();

/// While one lives the loss of the display ends the process in any case: for calls that wait for an answer of
/// the server, and would do so for ever once it is gone.
class DisplayNeeded
{
public:
    DisplayNeeded();
    ~DisplayNeeded();
    DisplayNeeded(const DisplayNeeded &) = delete;
    DisplayNeeded &operator=(const DisplayNeeded &) = delete;
};

} // namespace platform
