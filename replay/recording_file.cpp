#include "replay/recording_file.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <ctime>
#include <functional>
#include <mutex>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

#include "platform/common/files.h"
#include "platform/common/folders.h"

namespace replay
{
namespace
{

constexpr std::chrono::seconds kLongestFarewell{1};
/// Of lines that wait for the disk; more than that are given up together with the rest of the recording.
constexpr std::size_t kMostBytes = 1 << 20;
constexpr std::size_t kUsualBytes = 1 << 14;

struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// The moment as a file's name without ending, which sorts by time.
std::string nameOfNow()
{
    const std::time_t now = std::time(nullptr);
    char name[32];
    std::strftime(name, sizeof name, "%Y-%m-%d %H.%M.%S", std::localtime(&now));
    return name;
}

bool isRecording(const std::string &name) { return name.ends_with(kRecordingSuffix); }

void removeOldest(const std::string &folder, std::size_t kept)
{
    std::vector<std::string> names = platform::common::fileNames(folder);
    names.erase(std::remove_if(names.begin(), names.end(), std::not_fn(isRecording)), names.end());
    std::ranges::sort(names);
    for (std::size_t i = 0; i + kept < names.size(); ++i)
        std::remove((folder + '/' + names[i]).c_str());
}

/// A name that no other recording has, that of the same second included.
std::string freePath(const std::string &folder)
{
    const std::string name = folder + '/' + nameOfNow();
    std::string path = name + std::string(kRecordingSuffix);
    for (int number = 2; platform::common::isRegularFile(path); ++number)
        path = name + ' ' + std::to_string(number) + std::string(kRecordingSuffix);
    return path;
}

std::string makePlace(const std::string &folder, std::size_t newest)
{
    platform::common::makeFolder(folder);
    removeOldest(folder, newest - 1);
    return freePath(folder);
}

/// A file that holds whole lines only, whatever ends the program and however full the disk is.
class LineFile
{
public:
    explicit LineFile(std::string path) : path_(std::move(path)), file_(std::fopen(path_.c_str(), "wb"))
    {
        if (file_)
            std::setvbuf(file_.get(), nullptr, _IONBF, 0);
    }

    bool write(std::string_view lines)
    {
        if (!file_)
            return false;
        if (std::fwrite(lines.data(), 1, lines.size(), file_.get()) == lines.size()) {
            size_ += static_cast<off_t>(lines.size());
            return true;
        }
        file_.reset();
        static_cast<void>(truncate(path_.c_str(), size_));
        return false;
    }

private:
    std::string path_;
    File file_;
    off_t size_ = 0;
};

} // namespace

struct RecordingFile::Shared {
    std::string folder;
    std::size_t newest;
    std::mutex mutex;
    std::condition_variable changed;
    std::string lines; ///< That wait to be written.
    bool failed = false;
    bool quitting = false;
    bool ended = false;
};

RecordingFile::RecordingFile(std::string folder, std::size_t newest) : shared_(std::make_shared<Shared>())
{
    shared_->folder = std::move(folder);
    shared_->newest = newest;
    shared_->lines.reserve(kUsualBytes);
}

RecordingFile::~RecordingFile()
{
    if (!writer_.joinable())
        return;
    std::unique_lock lock(shared_->mutex);
    shared_->quitting = true;
    shared_->changed.notify_all();
    const bool ended = shared_->changed.wait_for(lock, kLongestFarewell, [this] { return shared_->ended; });
    lock.unlock();
    if (ended)
        writer_.join();
    else
        writer_.detach();
}

void RecordingFile::write(std::string_view lines)
{
    {
        const std::lock_guard lock(shared_->mutex);
        if (shared_->failed)
            return;
        shared_->lines += lines;
    }
    shared_->changed.notify_all();
    if (writer_.joinable())
        return;
    try {
        writer_ = std::thread(run, shared_);
    } catch (const std::system_error &) {
        shared_->failed = true;
    }
}

void RecordingFile::run(const std::shared_ptr<Shared> &shared)
{
    LineFile file(makePlace(shared->folder, shared->newest));
    std::string lines;
    lines.reserve(kUsualBytes);
    std::unique_lock lock(shared->mutex);
    while (!shared->failed && !(shared->quitting && shared->lines.empty())) {
        shared->changed.wait(lock, [&shared] { return shared->quitting || !shared->lines.empty(); });
        std::swap(lines, shared->lines);
        lock.unlock();
        const bool written = file.write(lines);
        lines.clear();
        lock.lock();
        shared->failed = !written || shared->lines.size() > kMostBytes;
    }
    shared->ended = true;
    shared->changed.notify_all();
}

} // namespace replay
