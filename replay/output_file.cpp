#include "replay/output_file.h"

#include <cerrno>
#include <cstring>
#include <iostream>
#include <utility>

#include "platform/common/standard_output.h"

namespace replay
{
namespace
{

constexpr std::size_t kBufferBytes = 1 << 16;

} // namespace

OutputFile::~OutputFile() { close(); }

bool OutputFile::open(const std::string &path)
{
    path_ = path;
    file_ = std::fopen(path.c_str(), "wb");
    if (file_)
        std::setvbuf(file_, nullptr, _IOFBF, kBufferBytes);
    else
        fail();
    return !failed_;
}

void OutputFile::openStandardOutput()
{
    platform::common::keepStandardOutputBytes();
    path_ = "-";
    file_ = stdout;
}

void OutputFile::write(std::string_view bytes)
{
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size())
        fail();
}

bool OutputFile::close()
{
    std::FILE *file = std::exchange(file_, nullptr);
    if (file && (file == stdout ? std::fflush(file) : std::fclose(file)) != 0)
        fail();
    return !failed_;
}

void OutputFile::fail()
{
    if (!std::exchange(failed_, true))
        reportUnwritable(path_);
}

void reportUnwritable(const std::string &path)
{
    std::cerr << "replay: cannot write '" << path << "': " << std::strerror(errno) << '\n';
}

} // namespace replay
