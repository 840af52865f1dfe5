#pragma once

#include <string>

struct SDL_Window;

namespace platform
{

/// Gives a window a title in UTF-8, whatever the language of the program's surroundings. SDL's own way leaves
/// the old one, and memory, where its characters are foreign to that.
void setTitle(SDL_Window *window, const std::string &title);

} // namespace platform
