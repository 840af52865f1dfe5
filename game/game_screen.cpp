#include "game/game_screen.h"

#include <iterator>

#include "game/events.h"
#include "game/game_state.h"
#include "graphics/image_loading.h"
#include "platform/clock.h"
#include "platform/random.h"
#include "platform/sound.h"
#include "screens/screen_names.h"
#include "shell/application.h"
#include "shell/event_bus.h"

namespace mygame
{
namespace
{

struct Look {
    const char16_t *file;
    Ms frameTimeMs;
};

constexpr Look kMissileLook = {u"missile.png", 300};
constexpr Look kExplosionLook = {u"explosion.png", 30};
constexpr Look kAsteroidLooks[] = {
    {u"asteroid.png", 200},
    {u"asteroid2.png", 220},
    {u"asteroid3.png", 240},
    {u"asteroid4.png", 180},
};

// A zone goes on to the screen's edge, and a tap may lie beyond that.
constexpr std::int32_t kNoLeftEdge = -1;
constexpr std::int32_t kNoRightEdge = INT32_MAX;

constexpr std::uint32_t kSoundGapMs = 100;

/// When the last explosion sound began. Of the process: it goes on through all games.
Tick lastExplosionSound = 0;

EventBus &bus() { return EventBus::instance(); }

void loadPicture(Surface &surface, const char16_t *file) { surface.load(dataFilePath(file)); }

/// Loads a button, whose key is the colour of its own corner.
void loadButton(Surface &surface, const char16_t *file)
{
    loadPicture(surface, file);
    surface.setColourKey(surface.pixelAt(0, 0));
}

void loadSprite(AnimatedSprite &sprite, const Look &look, Pixel key)
{
    sprite.load(dataFilePath(look.file), look.frameTimeMs);
    sprite.setColourKey(key);
}

void startLooping(AnimatedSprite &sprite)
{
    sprite.start(platform::GetTickCount(), AnimatedSprite::kLoopForEver);
}

} // namespace

constinit const GameScreen::Button GameScreen::kButtons[] = {
    {u"nuke.png", {7, 296}, {kNoLeftEdge, 33, 296}, [](GameScreen &) { bus().post<NukeEvent>(); }},
    {u"menu.png", {210, 290}, {210, kNoRightEdge, 290}, [](GameScreen &screen) { screen.openGameMenu(); }},
};

GameScreen::GameScreen()
{
    static_assert(std::size(kAsteroidLooks) == kAsteroidKinds);
    loadPicture(background_, u"bg.jpg");
    for (int i = 0; i < kButtonCount; ++i)
        loadButton(buttonPictures_[i], kButtons[i].file);
    loadSprite(missileSprite_, kMissileLook, kBlack);
    startLooping(missileSprite_);
    for (int i = 0; i < kAsteroidKinds; ++i) {
        loadSprite(asteroidSprites_[i], kAsteroidLooks[i], kBlack);
        startLooping(asteroidSprites_[i]);
    }
    loadSprite(explosionSprite_, kExplosionLook, kMagenta);
    for (EventType type : {kAsteroidSpawned, kMissileLaunched, kMissileDetonated, kAsteroidDestroyed,
                           kGameEnded, kWaveComplete, kNukeFlash, kExplosionFinished})
        bus().subscribe(type, this);
}

void GameScreen::link(GameState *gameState)
{
    state_ = gameState;
    loadPicture(state_->player.satellite, u"satellite.png");
    state_->player.satellite.setColourKey(kBlack);
}

bool GameScreen::activate(Application *application)
{
    application_ = application;
    menuOpen_ = false;
    bus().post<ResumeEvent>();
    return true;
}

void GameScreen::keyDown(std::uint16_t) { application_->requestStop(); }

const GameScreen::Button *GameScreen::buttonAt(std::int32_t x, std::int32_t y)
{
    for (const Button &button : kButtons) {
        const TapZone &zone = button.zone;
        if (x > zone.left && x < zone.right && y > zone.top)
            return &button;
    }
    return nullptr;
}

void GameScreen::pointerDown(std::uint16_t x, std::uint16_t y)
{
    if (menuOpen_)
        state_->menu.onPointer(x, y);
    else if (const Button *button = buttonAt(x, y))
        button->press(*this);
    else
        bus().post<FireEvent>(x, y);
}

constinit const GameScreen::MenuRow GameScreen::kMenuRows[] = {
    {u"Resume",
     [](GameScreen &screen) {
         bus().post<ResumeEvent>();
         screen.menuOpen_ = false;
     }},
    {u"Main menu",
     [](GameScreen &screen) {
         // Kept: the menu stays open and the game paused until the next activation.
         screen.application_->setScreen(screen_names::kMainMenu);
     }},
};

void GameScreen::openGameMenu()
{
    bus().post<PauseEvent>();
    menuOpen_ = true;
    state_->menu.open(this);
    for (const MenuRow &row : kMenuRows)
        state_->menu.addItem(row.text);
}

void GameScreen::itemChosen(std::u16string text)
{
    for (const MenuRow &row : kMenuRows) {
        if (text == row.text)
            return row.choose(*this);
    }
}

void GameScreen::update(Tick now)
{
    bus().post<TickEvent>();
    bus().dispatchAll();
    // Kept: another screen may be current by now; this one's menu or animations advance all the same.
    if (menuOpen_)
        state_->menu.update(now);
    else
        updateAnimations(now);
}

void GameScreen::updateAnimations(Tick now)
{
    for (auto &[id, explosion] : state_->explosions) {
        if (explosion.sprite.isFinished())
            bus().post<ExplosionFinishedEvent>(id);
        else
            explosion.sprite.update(now);
    }
    // Kept: the missiles' one sprite is never updated and shows its first frame.
    for (auto &[id, asteroid] : state_->asteroids)
        asteroid.sprite.update(now);
}

bool GameScreen::onEvent(const Event &event)
{
    switch (event.type) {
    case kAsteroidSpawned:
        dressAsteroid(static_cast<const AsteroidSpawnedEvent &>(event).id);
        break;
    case kAsteroidDestroyed: {
        // Kept: one for each time that it is named, though it goes only once.
        const auto &destroyed = static_cast<const AsteroidDestroyedEvent &>(event);
        spawnExplosion(destroyed.x, destroyed.y);
        break;
    }
    case kMissileDetonated: {
        // Kept: also when the missile is gone already.
        const auto &detonated = static_cast<const MissileDetonatedEvent &>(event);
        spawnExplosion(detonated.x, detonated.y);
        break;
    }
    case kMissileLaunched:
        dressMissile(static_cast<const MissileLaunchedEvent &>(event).id);
        break;
    case kExplosionFinished:
        state_->explosions.erase(static_cast<const ExplosionFinishedEvent &>(event).id);
        break;
    case kGameEnded:
        endGame();
        break;
    case kWaveComplete:
        application_->setScreen(screen_names::kShop);
        break;
    case kNukeFlash:
        nukeFlashStart_ = platform::GetTickCount();
        break;
    default:
        break;
    }
    return false;
}

void GameScreen::dressAsteroid(std::int32_t id)
{
    const auto found = state_->asteroids.find(id);
    if (found == state_->asteroids.end())
        return;
    AnimatedSprite &sprite = found->second.sprite;
    sprite = asteroidSprites_[platform::rand() % kAsteroidKinds];
    startLooping(sprite);
}

void GameScreen::dressMissile(std::int32_t id)
{
    const auto found = state_->missiles.find(id);
    if (found != state_->missiles.end())
        found->second.sprite = &missileSprite_;
}

void GameScreen::spawnExplosion(std::int32_t x, std::int32_t y)
{
    const std::int32_t id = ++explosionCounter_;
    Explosion &explosion = state_->explosions[id];
    explosion.sprite = explosionSprite_;
    explosion.x = x;
    explosion.y = y;
    explosion.id = id;
    explosion.sprite.start(platform::GetTickCount(), 1);
    playExplosionSound();
}

void GameScreen::playExplosionSound() const
{
    // Kept: as an unsigned number, so that a clock that wrapped or went back is a long time.
    if (!state_->soundOn || platform::GetTickCount() - lastExplosionSound <= kSoundGapMs)
        return;
    platform::PlaySoundW(dataFilePath(u"explosion.wav").c_str(), nullptr,
                         platform::SND_FILENAME | platform::SND_ASYNC);
    lastExplosionSound = platform::GetTickCount();
}

void GameScreen::endGame()
{
    const Ending ending = rulesOf(state_->mode).ending(*state_);
    if (ending.kind == Ending::Kind::Message)
        showMessage(ending.message);
    else if (ending.kind == Ending::Kind::GameOver)
        showGameOver();
}

void GameScreen::showMessage(const std::u16string &text)
{
    state_->messageScreen.setMessage(text, application_->findScreen(screen_names::kMainMenu));
    application_->setScreen(screen_names::kMessage);
}

void GameScreen::showGameOver()
{
    state_->animScreen.setScreens(this, application_->findScreen(screen_names::kGameOver));
    application_->setScreen(screen_names::kAnimation);
}

} // namespace mygame
