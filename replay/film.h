#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "replay/output_file.h"

namespace replay
{

/// Writes what is shown as raw pictures, 60 a second, from the first frame up to the last. A picture is 3
/// bytes a pixel: red, green, blue.
class Film
{
public:
    /// The file must be open when the first frame is shown.
    explicit Film(OutputFile &file) : file_(file) {}

    /// A frame was shown so many milliseconds after the start of the run.
    void show(std::uint64_t elapsedMs, std::span<const std::uint16_t> pixels);

    /// The last frame was shown.
    void finish();

private:
    std::uint64_t nextMs() const;
    void writePicture();

    OutputFile &file_;
    std::uint64_t pictures_ = 0; ///< Written so far.
    std::uint64_t firstMs_ = 0;  ///< When the first frame was shown,
    std::uint64_t shownMs_ = 0;  ///< and the last one, counted from there.
    std::vector<std::uint8_t> shown_;
};

} // namespace replay
