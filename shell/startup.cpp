#include "shell/startup.h"

#include "game/game_rules.h"
#include "game/game_screen.h"
#include "game/game_state.h"
#include "graphics/image_loading.h"
#include "platform/clock.h"
#include "platform/random.h"
#include "screens/game_over_screen.h"
#include "screens/main_menu_screen.h"
#include "screens/screen_names.h"
#include "screens/shop_screen.h"
#include "shell/application.h"
#include "shell/event_bus.h"

namespace mygame
{
namespace
{

constexpr char16_t kFontCharacters[] = u" ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                       u"abcdefghijklmnopqrstuvwxyz"
                                       u"1234567890"
                                       u"!?\"'#$%&()[]{}_.,;:<>/*-+\\@|";
constexpr char16_t kBigFontCharacters[] = u" ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                          u"abcdefghijklmnopqrstuvwxyz";

void loadFont(BitmapFont &font, const char16_t *file, const char16_t *characters)
{
    font.load(dataFilePath(file), characters);
    font.setColourKey(kMagenta);
}

void loadCap(Surface &cap, const char16_t *file)
{
    cap.load(dataFilePath(file));
    cap.setColourKey(kMagenta);
}

} // namespace

Program::Program() : application_(std::make_unique<Application>())
{
    platform::srand(platform::GetTickCount());
    state_ = std::make_unique<GameState>();
    rules_ = std::make_unique<GameRules>();
    gameScreen_ = std::make_unique<GameScreen>();
    rules_->link(state_.get());
    gameScreen_->link(state_.get());
    state_->soundOn = 1;
    loadFonts();
    setUpMenu();
    shop_ = std::make_unique<ShopScreen>();
    gameOver_ = std::make_unique<GameOverScreen>();
    mainMenu_ = std::make_unique<MainMenuScreen>();
    linkScreens();
    for (const auto &[name, screen] : screens())
        application_->addScreen(name, screen);
    application_->setScreen(screen_names::kMainMenu);
}

Program::~Program() { EventBus::instance().clear(); }

void Program::loadFonts()
{
    loadFont(state_->font, u"font.png", kFontCharacters);
    loadFont(state_->bigFont, u"font_big.png", kBigFontCharacters);
}

void Program::setUpMenu()
{
    loadCap(leftCap_, u"menu_left.png");
    loadCap(rightCap_, u"menu_right.png");
    state_->menu.setup(state_->bigFont, leftCap_, rightCap_);
}

void Program::linkScreens()
{
    gameOver_->setFont(state_->font);
    shop_->link(state_.get(), state_->font);
    mainMenu_->link(state_.get());
    state_->messageScreen.setFont(state_->font);
}

std::array<Program::NamedScreen, 6> Program::screens() const
{
    return {{{screen_names::kShop, shop_.get()},
             {screen_names::kGame, gameScreen_.get()},
             {screen_names::kGameOver, gameOver_.get()},
             {screen_names::kMainMenu, mainMenu_.get()},
             {screen_names::kMessage, &state_->messageScreen},
             {screen_names::kAnimation, &state_->animScreen}}};
}

const char *Program::currentScreenName() const
{
    for (const auto &[name, screen] : screens()) {
        if (screen == application_->currentScreen())
            return name;
    }
    return "";
}

bool Program::isInGame() const { return application_->currentScreen() == gameScreen_.get(); }

void Program::run(platform::HINSTANCE instance, int showCommand)
{
    if (application_->init(instance, showCommand))
        application_->run();
}

bool Program::begin(platform::HINSTANCE instance, int showCommand)
{
    if (!application_->init(instance, showCommand))
        return false;
    application_->beginLoop();
    return true;
}

bool Program::runPass() { return application_->runPass(); }

void Program::end() { application_->endLoop(); }

int startUp(platform::HINSTANCE instance, platform::HINSTANCE, const char16_t *, int showCommand)
{
    Program().run(instance, showCommand);
    return 0;
}

} // namespace mygame
