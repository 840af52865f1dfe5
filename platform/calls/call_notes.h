/// Notes of the calls that a device wants to be told of.
#pragma once

#include <string>
#include <type_traits>
#include <vector>

#include "platform/device.h"

namespace platform
{

/// An argument as it stands in a note.
std::string noteText(HWND window);
std::string noteText(const char16_t *text);
template <class Number>
requires std::is_arithmetic_v<Number> std::string noteText(Number number) { return std::to_string(number); }

/// Notes a call with its arguments, separated by spaces.
template <class... Arguments> void note(const char *call, Arguments... arguments)
{
    if (std::vector<std::string> *notes = device().callNotes())
        notes->push_back((std::string(call) + ... + (' ' + noteText(arguments))));
}

} // namespace platform
