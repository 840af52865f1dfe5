#include "screens/anim_screen.h"

#include "graphics/screen_size.h"
#include "platform/clock.h"
#include "shell/application.h"

namespace mygame
{

AnimScreen::AnimScreen() { buffer.create(kScreenWidth, kScreenHeight); }

void AnimScreen::setScreens(Screen *staying, Screen *incoming)
{
    from = staying;
    to = incoming;
}

void AnimScreen::render(Surface &target)
{
    // Kept: neither is current. The one was left, the other is activated only at the end.
    from->render(target);
    to->render(buffer);
    buffer.blitTo(target, 0, offset);
}

void AnimScreen::update(Tick now)
{
    offset = kScreenHeight - msBetween(startTick, now);
    if (offset <= 0)
        application->setCurrentScreen(to);
}

bool AnimScreen::activate(Application *current)
{
    application = current;
    offset = kScreenHeight;
    startTick = platform::GetTickCount();
    return true;
}

} // namespace mygame
