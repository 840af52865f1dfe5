#include "platform/sdl/sound_player.h"

#include <emscripten.h>

namespace platform
{
namespace
{

// clang-format off
EM_JS(void, startPageSound, (const char *file), { Module.startSound(UTF8ToString(file)); });
// clang-format on

} // namespace

/// The page plays the sounds.
class SoundPlayer::Output
{
};

SoundPlayer::SoundPlayer() = default;
SoundPlayer::~SoundPlayer() = default;

void SoundPlayer::play(const std::string &file) { startPageSound(file.c_str()); }

} // namespace platform
