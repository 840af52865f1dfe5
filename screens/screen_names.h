/// The names by which the screens are registered.
#pragma once

namespace mygame::screen_names
{

constexpr const char *kAnimation = "ANIMSCREEN";
constexpr const char *kGame = "GAME";
constexpr const char *kGameOver = "GAME_OVER";
constexpr const char *kMainMenu = "MAIN_MENU";
constexpr const char *kMessage = "MESSAGE";
constexpr const char *kShop = "SHOP";

} // namespace mygame::screen_names
