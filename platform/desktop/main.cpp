/// `mygame`: the program in a window.
#include "platform/window.h"
#include "shell/startup.h"

int main() { return mygame::startUp(nullptr, nullptr, u"", platform::SW_SHOW); }
