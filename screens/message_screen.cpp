#include "screens/message_screen.h"

#include "graphics/image_loading.h"
#include "graphics/screen_size.h"
#include "shell/application.h"

namespace mygame
{
namespace
{

constexpr std::int32_t kTextY = kScreenCentreY;
constexpr std::int32_t kPromptY = kScreenHeight - 20;
/// A tap below this leads on.
constexpr std::int32_t kStripTop = kScreenHeight - 40;

} // namespace

MessageScreen::MessageScreen() { background_.load(dataFilePath(u"bg.jpg")); }

void MessageScreen::setMessage(const std::u16string &message, Screen *nextScreen)
{
    text_ = message;
    next_ = nextScreen;
}

void MessageScreen::render(Surface &target)
{
    background_.blitTo(target, 0, 0);
    target.drawText(font_, text_, kScreenCentreX, kTextY, TextAlign::AlignCentre);
    target.drawText(font_, u"Click here to continue", kScreenCentreX, kPromptY, TextAlign::AlignCentre);
}

void MessageScreen::pointerUp(std::uint16_t, std::uint16_t y)
{
    if (y > kStripTop)
        application_->setCurrentScreen(next_);
}

bool MessageScreen::activate(Application *application)
{
    application_ = application;
    return true;
}

} // namespace mygame
