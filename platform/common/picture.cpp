#include "platform/common/picture.h"

#include <cstring>
#include <new>

#include "platform/common/files.h"
#include "platform/image_files.h"

namespace platform::common
{
namespace
{

constexpr unsigned char kPngSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr unsigned char kJpegSignature[] = {0xFF, 0xD8, 0xFF};

struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

template <std::size_t N>
bool beginsWith(const unsigned char (&start)[sizeof kPngSignature], const unsigned char (&signature)[N])
{
    return std::memcmp(start, signature, N) == 0;
}

} // namespace

bool Picture::allocate(std::uint32_t newWidth, std::uint32_t newHeight)
{
    if (newWidth < 1 || newHeight < 1 || newWidth > kMaxPictureSide || newHeight > kMaxPictureSide)
        return false;
    pixels.reset(new (std::nothrow) std::uint8_t[std::size_t{newWidth} * newHeight * kPixelBytes]);
    if (!pixels)
        return false;
    width = static_cast<std::int32_t>(newWidth);
    height = static_cast<std::int32_t>(newHeight);
    return true;
}

bool decodePicture(const std::string &hostPath, Picture &picture)
{
    const File file(isRegularFile(hostPath) ? std::fopen(hostPath.c_str(), "rb") : nullptr);
    unsigned char start[sizeof kPngSignature] = {};
    if (!file || std::fread(start, sizeof start, 1, file.get()) != 1)
        return false;
    std::rewind(file.get());
    if (beginsWith(start, kPngSignature))
        return decodePng(file.get(), picture);
    if (beginsWith(start, kJpegSignature))
        return decodeJpeg(file.get(), picture);
    return false;
}

} // namespace platform::common
