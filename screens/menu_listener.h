#pragma once

#include <string>

namespace mygame
{

/// Receives what the player chose in a menu.
class MenuListener
{
public:
    /// The chosen row's text. The menu may be opened anew from here.
    virtual void itemChosen(std::u16string text) = 0;

protected:
    ~MenuListener() = default;
};

} // namespace mygame
