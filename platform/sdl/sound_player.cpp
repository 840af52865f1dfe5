#include "platform/sdl/sound_player.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include <SDL_thread.h>

#include "platform/sdl/audio_output.h"

namespace platform
{
namespace
{

constexpr std::chrono::milliseconds kLongestFarewell{200};

/// What the two threads share; the one that ends last deletes it.
struct Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<std::string> requested;
    bool quitting = false;
    bool ended = false;

    bool hasWork() const { return quitting || requested; }
};

void run(const std::shared_ptr<Shared> &shared)
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

} // namespace

/// A thread of its own, which the first sound starts.
class SoundPlayer::Output
{
public:
    Output() = default;
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;
    /// A thread that the sound system holds up is left behind after a moment.
    ~Output();

    void play(const std::string &file);

private:
    std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
    std::thread worker_;
};

SoundPlayer::Output::~Output()
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

void SoundPlayer::Output::play(const std::string &file)
{
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

SoundPlayer::SoundPlayer() : output_(std::make_unique<Output>()) {}
SoundPlayer::~SoundPlayer() = default;

void SoundPlayer::play(const std::string &file) { output_->play(file); }

} // namespace platform
