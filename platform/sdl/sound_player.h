#pragma once

#include <memory>
#include <string>

namespace platform
{

/// Plays sounds, one at a time. Nothing about sound ever makes the game wait, and whatever fails is silence.
class SoundPlayer
{
public:
    SoundPlayer();
    SoundPlayer(const SoundPlayer &) = delete;
    SoundPlayer &operator=(const SoundPlayer &) = delete;
    /// Ends the sound.
    ~SoundPlayer();

    /// Starts a WAV file in place of the sound that plays. The path is one of the host.
    void play(const std::string &file);

private:
    /// What plays, which is the host's.
    class Output;

    std::unique_ptr<Output> output_;
};

} // namespace platform
