#include "screens/anim_screen.h"

#include "graphics/screen_size.h"
#include "platform/clock.h"
#include "shell/application.h"

namespace mygame
{

AnimScreen::AnimScreen() { buffer_.create(kScreenWidth, kScreenHeight); }

void AnimScreen::setScreens(Screen *staying, Screen *incoming)
{
    from_ = staying;
    to_ = incoming;
}

void AnimScreen::render(Surface &target)
{
    // Kept: neither is current. The one was left, the other is activated only at the end.
    from_->render(target);
    to_->render(buffer_);
    buffer_.blitTo(target, 0, offset_);
}

void AnimScreen::update(Tick now)
{
    offset_ = kScreenHeight - msBetween(startTick_, now);
    if (offset_ <= 0)
        application_->setCurrentScreen(to_);
}

bool AnimScreen::activate(Application *application)
{
    application_ = application;
    offset_ = kScreenHeight;
    startTick_ = platform::GetTickCount();
    return true;
}

} // namespace mygame
