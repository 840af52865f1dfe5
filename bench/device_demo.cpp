/// A program to try a device with a screen with: moving and standing pictures, text, and every input message
/// that arrives written to the standard output, where `window_test.sh` and `window_figures.sh` read it.
///
/// A tap on the first of the coloured squares stops the movement and goes on with it, on the second makes
/// every pixel change in every frame, on the third plays a sound. Escape ends.

#include <cinttypes>
#include <cstdio>
#include <optional>

#include "graphics/animated_sprite.h"
#include "graphics/bitmap_font.h"
#include "graphics/image_loading.h"
#include "platform/sdl/sdl_device.h"
#include "platform/sound.h"
#include "shell/application.h"

namespace mygame
{
namespace
{

constexpr std::uint16_t kEscape = 0x1B;

constexpr std::int32_t kScreenWidth = 240;
constexpr std::int32_t kScreenHeight = 320;
constexpr std::int32_t kMiddle = kScreenWidth / 2;

constexpr Pixel kBackground = packColour(16, 32, 72);
constexpr Pixel kBlue = packColour(0, 0, 255);
/// The coloured squares, from the left.
constexpr std::int32_t kSquaresLeft = 10;
constexpr std::int32_t kSquaresTop = 10;
constexpr std::int32_t kSquareSide = 30;
constexpr std::int32_t kSquarePitch = 38;
constexpr std::int32_t kSpriteFrameMs = 150;
constexpr std::int32_t kSpriteRange = 200; ///< Pixels that the sprite travels before it starts again.

enum class Motion { Moving, Still, EveryPixel };

struct Place {
    std::uint16_t x;
    std::uint16_t y;
};

/// Written at once: whoever reads it waits for it.
void report(const char *what, Place place)
{
    std::printf("%s %d %d\n", what, place.x, place.y);
    std::fflush(stdout);
}

void report(const char *what, std::uint32_t number)
{
    std::printf("%s %02" PRIX32 "\n", what, number);
    std::fflush(stdout);
}

class DemoScreen : public Screen
{
public:
    bool load()
    {
        const bool loaded = ball_.load(dataFilePath(u"demo\\ball.png"), kSpriteFrameMs) &&
                            font_.load(dataFilePath(u"demo\\font.png"), u" ABCDEFGHIJKLMNOPQRSTUVWXYZ") &&
                            picture_.load(dataFilePath(u"demo\\picture.png"));
        ball_.setColourKey(kMagenta);
        font_.setColourKey(kMagenta);
        ball_.start(0, AnimatedSprite::kLoopForEver);
        return loaded;
    }

    void render(Surface &target) override
    {
        target.fill(motion_ == Motion::EveryPixel ? static_cast<Pixel>(frames_ * 0x0841) : kBackground);
        drawColours(target);
        picture_.blitCentredTo(target, kMiddle, 220);
        target.drawText(font_, u"LEFT", 4, 60, TextAlign::AlignLeft);
        target.drawText(font_, u"CENTRE", kMiddle, 80, TextAlign::AlignCentre);
        target.drawText(font_, u"RIGHT", kScreenWidth - 5, 100, TextAlign::AlignRight);
        ball_.drawCentred(target, 20 + frames_ % kSpriteRange, 130);
        if (stylus_)
            target.drawRect(stylus_->x - 4, stylus_->y - 4, stylus_->x + 4, stylus_->y + 4, kRed);
    }

    void update(std::uint32_t now) override
    {
        if (motion_ != Motion::Still) {
            ball_.update(now);
            ++frames_;
        }
        if (!shown_)
            report("picture", now);
        shown_ = true;
    }

    void keyDown(std::uint16_t key) override
    {
        report("press", key);
        if (key == kEscape)
            application_->requestStop();
    }

    void keyUp(std::uint16_t key) override { report("release", key); }

    void pointerDown(std::uint16_t x, std::uint16_t y) override
    {
        stylus_ = {x, y};
        report("down", *stylus_);
        if (y >= kSquaresTop && y < kSquaresTop + kSquareSide)
            tapSquare((x - kSquaresLeft) / kSquarePitch);
    }

    void pointerMove(std::uint16_t x, std::uint16_t y) override
    {
        stylus_ = {x, y};
        report("move", *stylus_);
    }

    void pointerUp(std::uint16_t x, std::uint16_t y) override
    {
        stylus_.reset();
        report("up", Place{x, y});
    }

    bool activate(Application *owner) override
    {
        application_ = owner;
        return true;
    }

private:
    void tapSquare(std::int32_t square)
    {
        if (square == 0)
            motion_ = motion_ == Motion::Still ? Motion::Moving : Motion::Still;
        else if (square == 1)
            motion_ = Motion::EveryPixel;
        else if (square == 2)
            platform::PlaySoundW(dataFilePath(u"demo\\sound.wav").c_str(), nullptr,
                                 platform::SND_FILENAME | platform::SND_ASYNC);
    }

    /// Squares of the colours whose exact values are looked for, a frame around the whole screen.
    static void drawColours(Surface &target)
    {
        constexpr Pixel kColours[] = {kWhite, kGreen, kRed, kBlue, kMagenta, kBlack};
        std::int32_t x = kSquaresLeft;
        for (const Pixel colour : kColours) {
            target.fillRect(x, kSquaresTop, x + kSquareSide - 1, kSquaresTop + kSquareSide - 1, colour);
            x += kSquarePitch;
        }
        target.drawRect(0, 0, kScreenWidth - 1, kScreenHeight - 1, kWhite);
    }

    Application *application_ = nullptr;
    AnimatedSprite ball_;
    BitmapFont font_;
    Surface picture_;
    Motion motion_ = Motion::Moving;
    std::int32_t frames_ = 0;
    bool shown_ = false;
    std::optional<Place> stylus_;
};

} // namespace
} // namespace mygame

int main()
{
    platform::SdlDevice device;
    platform::useDevice(device);
    mygame::Application application;
    mygame::DemoScreen screen;
    if (!screen.load())
        std::fprintf(stderr, "device_demo: cannot load the pictures in demo/ beside the program\n");
    application.addScreen("DEMO", &screen);
    application.setScreen("DEMO");
    if (application.init(nullptr, platform::SW_SHOW))
        application.run();
    return 0;
}
