#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace platform
{

/// Plays sounds on a thread of its own, which the first sound starts, so that nothing about sound ever makes
/// the game wait.
class SoundPlayer
{
public:
    SoundPlayer() = default;
    SoundPlayer(const SoundPlayer &) = delete;
    SoundPlayer &operator=(const SoundPlayer &) = delete;
    /// Ends the sound. A thread that the sound system holds up is left behind after a moment.
    ~SoundPlayer();

    /// Starts a WAV file in place of the sound that plays. The path is one of the host.
    void play(const std::string &file);

private:
    /// What the two threads share; the one that ends last deletes it.
    struct Shared {
        std::mutex mutex;
        std::condition_variable changed;
        std::optional<std::string> requested;
        bool quitting = false;
        bool ended = false;

        bool hasWork() const { return quitting || requested; }
    };

    static void run(const std::shared_ptr<Shared> &shared);

    std::shared_ptr<Shared> shared_;
    std::thread worker_;
};

} // namespace platform
