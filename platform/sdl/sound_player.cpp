#include "platform/sdl/sound_player.h"

#include <system_error>
#include <utility>

#include <SDL_thread.h>

#include "platform/sdl/audio_output.h"

namespace platform
{
namespace
{

constexpr std::chrono::milliseconds kLongestFarewell{200};

} // namespace

SoundPlayer::~SoundPlayer()
{
    if (!worker_.joinable())
        return;
    std::unique_lock lock(shared_->mutex);
    shared_->quitting = true;
    shared_->changed.notify_all();
    const bool ended = shared_->changed.wait_for(lock, kLongestFarewell, [this] { return shared_->ended; });
    lock.unlock();
    ended ? worker_.join() : worker_.detach();
}

void SoundPlayer::play(const std::string &file)
{
    if (!shared_)
        shared_ = std::make_shared<Shared>();
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->requested = file;
    }
    shared_->changed.notify_all();
    if (worker_.joinable())
        return;
    try {
        worker_ = std::thread(run, shared_);
    } catch (const std::system_error &) {
        // No thread, no sound; the next one tries again.
    }
}

void SoundPlayer::run(const std::shared_ptr<Shared> &shared)
{
    AudioOutput output;
    std::unique_lock lock(shared->mutex);
    const auto hasWork = [&shared] { return shared->hasWork(); };
    while (!shared->quitting) {
        if (shared->requested) {
            const std::string file = *std::exchange(shared->requested, std::nullopt);
            lock.unlock();
            output.play(file);
            lock.lock();
        } else if (!output.isOpen()) {
            shared->changed.wait(lock, hasWork);
        } else if (!shared->changed.wait_until(lock, output.closeTime(), hasWork)) {
            lock.unlock();
            output.close();
            lock.lock();
        }
    }
    lock.unlock();
    output.close();
    SDL_TLSCleanup(); // What SDL keeps for a thread that it did not start.
    lock.lock();
    shared->ended = true;
    shared->changed.notify_all();
}

} // namespace platform
