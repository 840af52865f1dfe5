#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace replay
{

/// A file that a run writes. What goes wrong is said on standard error, once.
class OutputFile
{
public:
    OutputFile() = default;
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;
    ~OutputFile();

    /// Makes the file, or empties it. @return false when that fails.
    bool open(const std::string &path);
    /// Writes to standard output.
    void openStandardOutput();
    bool isOpen() const { return file_ != nullptr; }

    /// May keep bytes back until `close`. Only while open.
    void write(std::string_view bytes);

    /// Writes what was kept back. @return false when something could not be written; true when never opened.
    bool close();

private:
    void fail();

    std::string path_;
    std::FILE *file_ = nullptr;
    bool failed_ = false;
};

/// Says on standard error that a file cannot be written, and why, by the last system error.
void reportUnwritable(const std::string &path);

} // namespace replay
