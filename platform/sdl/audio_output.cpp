#include "platform/sdl/audio_output.h"

#include <SDL.h>

namespace platform
{
namespace
{

constexpr std::chrono::seconds kSilenceBeforeClosing{5};
constexpr std::chrono::seconds kPauseBetweenTries{5};

/// Sample frames that the device takes at a time: 12 ms at 44 kHz.
constexpr std::uint16_t kBufferedSamples = 512;

} // namespace

AudioOutput::Clock::duration AudioOutput::Sound::length() const
{
    const std::uint64_t frameBytes = SDL_AUDIO_BITSIZE(format.format) / 8u * format.channels;
    return std::chrono::microseconds(bytes / frameBytes * 1000000 / static_cast<std::uint64_t>(format.freq));
}

void AudioOutput::play(const std::string &file)
{
    const Sound &sound = decoded(file);
    if (!sound.samples)
        return;
    if (!isUsableFor(sound.format)) {
        close();
        open(sound.format);
    }
    if (!isOpen())
        return;
    SDL_ClearQueuedAudio(device_);
    SDL_QueueAudio(device_, sound.samples.get(), sound.bytes);
    closeTime_ = Clock::now() + sound.length() + kSilenceBeforeClosing;
}

void AudioOutput::close()
{
    if (!isOpen())
        return;
    SDL_CloseAudioDevice(device_);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    device_ = 0;
}

const AudioOutput::Sound &AudioOutput::decoded(const std::string &file)
{
    const auto [entry, isNew] = sounds_.try_emplace(file);
    Sound &sound = entry->second;
    std::uint8_t *samples = nullptr;
    if (isNew && SDL_LoadWAV(file.c_str(), &sound.format, &samples, &sound.bytes))
        sound.samples.reset(samples);
    return sound;
}

bool AudioOutput::isUsableFor(const SDL_AudioSpec &format) const
{
    // A device that was pulled out is stopped.
    return isOpen() && SDL_GetAudioDeviceStatus(device_) != SDL_AUDIO_STOPPED &&
           deviceFormat_.freq == format.freq && deviceFormat_.format == format.format &&
           deviceFormat_.channels == format.channels;
}

void AudioOutput::open(const SDL_AudioSpec &format)
{
    if (Clock::now() < nextTry_)
        return;
    nextTry_ = Clock::now() + kPauseBetweenTries;
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return;
    deviceFormat_ = format;
    deviceFormat_.samples = kBufferedSamples;
    deviceFormat_.callback = nullptr;
    device_ = SDL_OpenAudioDevice(nullptr, 0, &deviceFormat_, nullptr, 0);
    if (isOpen())
        SDL_PauseAudioDevice(device_, 0);
    else
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

} // namespace platform
