/// The words that scripts have for what the stylus and the buttons do, and the messages that they stand for.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/window.h"

namespace replay
{

struct MessageWord {
    std::string_view word;
    std::uint32_t number;
    /// Of the stylus, with a point in lParam; otherwise of a button, with its key code in wParam. The other
    /// parameter is 0.
    bool isStylus;
};

constexpr MessageWord kMessageWords[] = {
    {"touch", platform::WM_LBUTTONDOWN, true}, {"release", platform::WM_LBUTTONUP, true},
    {"move", platform::WM_MOUSEMOVE, true},    {"key-down", platform::WM_KEYDOWN, false},
    {"key-up", platform::WM_KEYUP, false},
};

/// Null where no word is like that.
inline const MessageWord *findWord(std::string_view word)
{
    for (const MessageWord &known : kMessageWords) {
        if (known.word == word)
            return &known;
    }
    return nullptr;
}
inline const MessageWord *findWord(std::uint32_t number)
{
    for (const MessageWord &known : kMessageWords) {
        if (known.number == number)
            return &known;
    }
    return nullptr;
}

} // namespace replay
