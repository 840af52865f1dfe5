#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/device.h"
#include "replay/checksum.h"

namespace replay
{

/// Where a recording goes.
class RecordingOutput
{
public:
    virtual ~RecordingOutput() = default;

    /// Takes some whole lines, the recording's next ones. What becomes of them must not keep the caller.
    virtual void write(std::string_view lines) = 0;
};

/// Another device, and what passes between it and the program as a script. Played, the script shows the same
/// frames.
class RecordingDevice final : public platform::Device
{
public:
    /// Before the program is built. Device and output must outlive the recording, which begins with
    /// `comments`, lines of that kind.
    RecordingDevice(platform::Device &device, RecordingOutput &output, std::string_view comments);

    /// The recording is worth keeping: from now on lines are written, at least once a second. Until then they
    /// are only remembered.
    void keep() { kept_ = true; }

    /// After the program's end: notes that, and writes what is left if the recording is kept.
    void finish();

    platform::Tick tick() const override { return device_.tick(); }
    void sleep(std::uint32_t milliseconds) override { device_.sleep(milliseconds); }

    bool poll(platform::MSG &message) override;
    bool createWindow(const std::string &title) override { return device_.createWindow(title); }
    bool showWindow(bool visible) override { return device_.showWindow(visible); }
    void raiseWindow() override { device_.raiseWindow(); }
    bool inForeground() const override { return device_.inForeground(); }
    bool isOtherCopyRunning() override { return device_.isOtherCopyRunning(); }
    void raiseOtherCopy() override { device_.raiseOtherCopy(); }

    std::uint32_t openDisplay() override;
    void closeDisplay() override { device_.closeDisplay(); }
    platform::GXDisplayProperties displayProperties() const override { return device_.displayProperties(); }
    bool isStandardDisplay() const override { return device_.isStandardDisplay(); }
    std::uint32_t displayRate() const override { return device_.displayRate(); }
    void *beginDraw() override;
    void endDraw() override;

    std::u16string programPath() const override { return device_.programPath(); }
    std::string hostFile(const std::u16string &path) const override;
    void startSound(const std::string &hostFile) override { device_.startSound(hostFile); }

    std::vector<std::string> *callNotes() override { return device_.callNotes(); }

private:
    /// The frame shown last.
    struct LastFrame {
        std::uint32_t atMs = 0;
        std::uint32_t checksum = 0;
        std::size_t place = 0; ///< In `lines_`, where its check belongs.
        bool isChecked = true;
    };

    /// What presenting a frame takes: as long as the next of the display's refreshes wants, or so many
    /// milliseconds.
    struct FrameLength {
        std::uint32_t rate; ///< In Hz, or 0.
        std::uint32_t ms;   ///< Where the rate is 0.

        bool operator==(const FrameLength &) const = default;
    };

    std::uint32_t elapsedMs() const { return device_.tick() - startTick_; }
    void note(std::uint32_t atMs, std::string_view what, std::initializer_list<std::uint32_t> numbers = {});
    void noteMessage(const platform::MSG &message);
    bool noteActivation(const platform::MSG &message);
    void noteFrame(std::uint32_t atMs);
    void noteLength(std::uint32_t atMs, std::uint32_t lengthMs);
    void checkLastFrame();
    void writeLines();

    platform::Device &device_;
    RecordingOutput &output_;
    const platform::Tick startTick_;
    bool kept_ = false;
    /// Until lines are written. Missing files are seen while the device is asked for them.
    mutable std::string header_;
    std::string lines_;     ///< Not written yet.
    std::string checkLine_; ///< Being put among them.
    std::uint32_t writtenMs_ = 0;

    // What the script says so far.
    FrameLength length_;
    bool foreground_ = true;
    bool frameBufferOn_ = true;
    std::uint32_t impliedMessage_ = 0; ///< Which follows on the activation in the script, too; or 0.
    std::optional<std::uint32_t> quitMs_;

    const std::uint16_t *pixels_ = nullptr; ///< Of the frame being drawn.
    PictureChecksum picture_;
    RunningChecksum running_;
    LastFrame lastFrame_;
};

} // namespace replay
