#include "replay/recording_device.h"

#include <charconv>
#include <utility>

#include "platform/common/device_path.h"
#include "platform/common/files.h"
#include "platform/common/refresh_grid.h"
#include "replay/message_words.h"

namespace replay
{
namespace
{

constexpr std::uint32_t kMsPerSecond = 1000;
constexpr std::uint32_t kMaxWord16 = 0xFFFF;

/// Of the lines of many seconds: after the first frames nothing is allocated.
constexpr std::size_t kUsualBytes = 1 << 16;

void append(std::string &text, std::uint32_t number)
{
    char digits[10];
    const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), number);
    text.append(digits, end);
}

/// Of a timed line.
void appendStart(std::string &text, std::uint32_t atMs)
{
    text += "at ";
    append(text, atMs);
    text += ' ';
}

void appendLine(std::string &text, std::string_view word, std::uint32_t number)
{
    text += word;
    text += ' ';
    append(text, number);
    text += '\n';
}

} // namespace

RecordingDevice::RecordingDevice(platform::Device &device, RecordingOutput &output, std::string_view comments)
    : device_(device), output_(output), startTick_(device.tick()),
      header_(comments), length_{device.displayRate(), 0},
      picture_(device.displayProperties().cxWidth, device.displayProperties().cyHeight)
{
    appendLine(header_, "clock", startTick_);
    if (device.displayRate() != 0)
        appendLine(header_, "refresh", device.displayRate());
    lines_.reserve(kUsualBytes);
}

void RecordingDevice::note(std::uint32_t atMs, std::string_view what,
                           std::initializer_list<std::uint32_t> numbers)
{
    appendStart(lines_, atMs);
    lines_ += what;
    for (const std::uint32_t number : numbers) {
        lines_ += ' ';
        append(lines_, number);
    }
    lines_ += '\n';
}

bool RecordingDevice::poll(platform::MSG &message)
{
    const bool polled = device_.poll(message);
    if (polled)
        noteMessage(message);
    // A window that comes to the front only after the start is in the background until then, without a
    // message.
    if (!polled && foreground_ && !device_.inForeground()) {
        note(elapsedMs(), "background");
        foreground_ = false;
    }
    if (elapsedMs() - writtenMs_ >= kMsPerSecond || !foreground_)
        writeLines();
    return polled;
}

void RecordingDevice::noteMessage(const platform::MSG &message)
{
    const std::uint32_t atMs = elapsedMs();
    const auto lParam = static_cast<std::uint32_t>(message.lParam);
    if (message.message == platform::WM_QUIT) {
        quitMs_ = quitMs_.value_or(atMs);
        return;
    }
    if (noteActivation(message))
        return;
    const MessageWord *named = findWord(message.message);
    const bool isKey = named && !named->isStylus && message.wParam <= kMaxWord16 && lParam == 0;
    if (named && named->isStylus) // wParam says what else is down, which the program never asks.
        note(atMs, named->word, {lParam & kMaxWord16, lParam >> 16});
    else if (isKey)
        note(atMs, named->word, {message.wParam});
    else
        note(atMs, "message", {message.message, message.wParam, lParam});
}

/// A line that takes the window to the front or away stands for two messages. @return whether this is one of
/// them.
bool RecordingDevice::noteActivation(const platform::MSG &message)
{
    if (message.message == std::exchange(impliedMessage_, 0))
        return true;
    const bool entered = message.wParam != 0;
    if (message.message != platform::WM_ACTIVATE || entered == foreground_ ||
        entered != device_.inForeground())
        return false;
    note(elapsedMs(), entered ? "foreground" : "background");
    foreground_ = entered;
    impliedMessage_ = entered ? platform::WM_SETFOCUS : platform::WM_KILLFOCUS;
    return true;
}

std::uint32_t RecordingDevice::openDisplay()
{
    const std::uint32_t error = device_.openDisplay();
    if (error != 0)
        appendLine(header_, "display-error", error);
    return error;
}

std::string RecordingDevice::hostFile(const std::u16string &path) const
{
    std::string file = device_.hostFile(path);
    if (!header_.empty() && !platform::common::isRegularFile(file))
        header_ += "hide " + platform::common::toHostPath(path.substr(path.rfind(u'\\') + 1)) + '\n';
    return file;
}

void *RecordingDevice::beginDraw()
{
    void *pixels = device_.beginDraw();
    if ((pixels != nullptr) != frameBufferOn_) {
        frameBufferOn_ = !frameBufferOn_;
        note(elapsedMs(), frameBufferOn_ ? "frame-buffer on" : "frame-buffer off");
    }
    pixels_ = static_cast<const std::uint16_t *>(pixels);
    return pixels;
}

void RecordingDevice::endDraw()
{
    const std::uint32_t atMs = elapsedMs();
    noteFrame(atMs);
    device_.endDraw();
    noteLength(atMs, elapsedMs() - atMs);
}

void RecordingDevice::noteFrame(std::uint32_t atMs)
{
    const platform::GXDisplayProperties display = device_.displayProperties();
    running_.add(picture_.of({pixels_, std::size_t{display.cxWidth} * display.cyHeight}));
    const bool beginsSecond = atMs / kMsPerSecond != lastFrame_.atMs / kMsPerSecond;
    lastFrame_ = {atMs, running_.value(), lines_.size(), false};
    if (beginsSecond)
        checkLastFrame();
}

void RecordingDevice::noteLength(std::uint32_t atMs, std::uint32_t lengthMs)
{
    const std::uint32_t rate = device_.displayRate();
    const bool isOnGrid = rate != 0 && atMs + lengthMs == platform::common::afterFrameMs(atMs, rate);
    const FrameLength length = isOnGrid ? FrameLength{rate, 0} : FrameLength{0, lengthMs};
    if (length == length_)
        return;
    length_ = length;
    if (isOnGrid)
        note(atMs, "refresh", {rate});
    else
        note(atMs, "frame-cost", {lengthMs});
    lastFrame_.place = lines_.size();
}

void RecordingDevice::checkLastFrame()
{
    if (lastFrame_.isChecked)
        return;
    checkLine_.clear();
    appendStart(checkLine_, lastFrame_.atMs);
    checkLine_ += "check ";
    checkLine_ += checksumDigits(lastFrame_.checksum);
    checkLine_ += '\n';
    lines_.insert(lastFrame_.place, checkLine_);
    lastFrame_.isChecked = true;
    lastFrame_.place += checkLine_.size();
}

void RecordingDevice::writeLines()
{
    if (!kept_)
        return;
    // What follows on the last frame stands behind its check, should no other frame come.
    if (lines_.size() > lastFrame_.place)
        checkLastFrame();
    if (!header_.empty())
        output_.write(std::exchange(header_, {}));
    if (!lines_.empty())
        output_.write(lines_);
    lines_.clear();
    lastFrame_.place = 0;
    writtenMs_ = elapsedMs();
}

void RecordingDevice::finish()
{
    checkLastFrame();
    if (quitMs_)
        note(*quitMs_, "quit");
    writeLines();
}

} // namespace replay
