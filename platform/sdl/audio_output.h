#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include <SDL_audio.h>

namespace platform
{

/// The desktop's sound device, opened for the first sound and playing one at a time. Its operations may take
/// as long as the sound system likes, so they are for a thread of their own. Whatever fails is silence.
class AudioOutput
{
public:
    using Clock = std::chrono::steady_clock;

    AudioOutput() = default;
    AudioOutput(const AudioOutput &) = delete;
    AudioOutput &operator=(const AudioOutput &) = delete;
    ~AudioOutput() { close(); }

    /// Starts a WAV file, which is decoded at its first use, and cuts off the sound that still plays.
    void play(const std::string &file);

    bool isOpen() const { return device_ != 0; }
    /// When there will have been silence for so long that the device should be closed. While it is open.
    Clock::time_point closeTime() const { return closeTime_; }
    void close();

private:
    struct FreeWav {
        void operator()(std::uint8_t *samples) const { SDL_FreeWAV(samples); }
    };
    struct Sound {
        SDL_AudioSpec format{};
        std::unique_ptr<std::uint8_t, FreeWav> samples; ///< Null when the file could not be decoded.
        std::uint32_t bytes = 0;

        Clock::duration length() const;
    };

    const Sound &decoded(const std::string &file);
    bool isUsableFor(const SDL_AudioSpec &format) const;
    void open(const SDL_AudioSpec &format);

    std::map<std::string, Sound> sounds_;
    SDL_AudioDeviceID device_ = 0;
    SDL_AudioSpec deviceFormat_{};
    Clock::time_point closeTime_;
    Clock::time_point nextTry_; ///< Opening is not tried again before.
};

} // namespace platform
