#pragma once

#include <cstdint>
#include <map>

#include "game/modes.h"
#include "game/objects.h"
#include "game/player.h"
#include "graphics/bitmap_font.h"
#include "graphics/ticks.h"
#include "screens/anim_screen.h"
#include "screens/menu_widget.h"
#include "screens/message_screen.h"

namespace mygame
{

/// The one record of the current game and of what several screens show. The keys of the three tables are the
/// records' ids, which only grow, so every pass visits the oldest record first.
struct GameState {
    Ms elapsedMs = 0; ///< Game time at the last simulation step.
    std::int32_t asteroidsDestroyed = 0;
    GameMode mode = GameMode::None;
    Difficulty difficulty = Difficulty::None;
    std::map<std::int32_t, Asteroid> asteroids;
    std::map<std::int32_t, Missile> missiles;
    std::map<std::int32_t, Explosion> explosions;
    Player player;
    MessageScreen messageScreen;
    BitmapFont font;
    BitmapFont bigFont;
    MenuWidget menu;
    std::int32_t wave = 0;           ///< Of the campaign, from 1.
    std::int32_t groupsThisWave = 0; ///< Launched so far.
    Ms asteroidFlightMs = 0;         ///< Of the next asteroid, from its start to its target.
    std::int32_t groupSize = 0;      ///< Asteroids in a group of the campaign.
    Ms missileTravelTime = 0;        ///< What a missile takes for 300 pixels.
    std::uint8_t soundOn = 0;        ///< 0 or 1.
    AnimScreen animScreen;
};

} // namespace mygame
