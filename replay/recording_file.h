#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <thread>

#include "replay/recording_device.h"

namespace replay
{

/// What a recording's name ends with.
constexpr std::string_view kRecordingSuffix = ".mygame";

/// A recording in a folder with the newest others, named by date and time. The file is made with the first
/// lines. Where it cannot be made or written, nothing is: whoever plays is not told and never waits.
class RecordingFile final : public RecordingOutput
{
public:
    /// Of the recordings in the folder, which is made when it is needed, the newest are kept, this one
    /// included.
    RecordingFile(std::string folder, std::size_t newest);
    RecordingFile(const RecordingFile &) = delete;
    RecordingFile &operator=(const RecordingFile &) = delete;
    /// Waits a moment for what is not written yet.
    ~RecordingFile() override;

    void write(std::string_view lines) override;

private:
    struct Shared;

    static void run(const std::shared_ptr<Shared> &shared);

    std::shared_ptr<Shared> shared_; ///< With the thread that writes, which may outlive this.
    std::thread writer_;
};

} // namespace replay
