#include "graphics/image_loading.h"

#include <cstddef>
#include <cstdint>

#include "graphics/surface.h"
#include "platform/image_files.h"
#include "platform/program_path.h"

namespace mygame
{
namespace
{

constexpr std::uint32_t kUsualPathLength = 260;

/// Bytes of a pixel in the 32-bit bitmap: blue, green, red and one that is not used.
constexpr std::ptrdiff_t kBitmapPixelBytes = 4;

std::u16string executablePath()
{
    std::u16string path(kUsualPathLength, u'\0');
    for (;;) {
        const auto room = static_cast<std::uint32_t>(path.size());
        const std::uint32_t length = platform::GetModuleFileNameW(nullptr, path.data(), room);
        if (length < room)
            return path.substr(0, length);
        path.resize(path.size() * 2);
    }
}

platform::BITMAPINFO readableBitmapInfo(std::int32_t width, std::int32_t height)
{
    platform::BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(platform::BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = platform::BI_RGB;
    return info;
}

/// Draws one bitmap into the other by two contexts. @return false when the system cannot.
bool drawBitmap(platform::HBITMAP loaded, platform::HDC source, platform::HBITMAP readable,
                platform::HDC target, std::int32_t width, std::int32_t height)
{
    platform::HGDIOBJ oldTarget = platform::SelectObject(target, readable);
    platform::HGDIOBJ oldSource = platform::SelectObject(source, loaded);
    const bool drawn = platform::BitBlt(target, 0, 0, width, height, source, 0, 0, platform::SRCCOPY) != 0;
    platform::SelectObject(target, oldTarget);
    platform::SelectObject(source, oldSource);
    return drawn;
}

/// Packs a bottom-up 32-bit bitmap into top-down pixels.
void packBitmap(const std::uint8_t *bits, std::int32_t width, std::int32_t height, Pixel *pixels)
{
    const std::ptrdiff_t rowBytes = kBitmapPixelBytes * width;
    for (std::int32_t y = 0; y < height; ++y) {
        const std::uint8_t *bgr = bits + (height - 1 - y) * rowBytes;
        for (std::int32_t x = 0; x < width; ++x, bgr += kBitmapPixelBytes)
            *pixels++ = packColour(bgr[2], bgr[1], bgr[0]);
    }
}

} // namespace

std::u16string dataFilePath(const std::u16string &name)
{
    const std::u16string path = executablePath();
    std::size_t last = path.empty() ? 0 : path.size() - 1;
    while (last > 0 && path[last] != u'\\')
        --last;
    return path.substr(0, last) + u'\\' + name;
}

bool Surface::load(const std::u16string &path)
{
    release();
    platform::HBITMAP loaded = platform::LoadImageFile(path.c_str());
    if (!loaded)
        return false;
    platform::BITMAP size{};
    void *bits = nullptr;
    platform::HBITMAP readable = nullptr;
    if (platform::GetObjectW(loaded, sizeof size, &size) != 0) {
        const platform::BITMAPINFO info = readableBitmapInfo(size.bmWidth, size.bmHeight);
        readable = platform::CreateDIBSection(nullptr, &info, platform::DIB_RGB_COLORS, &bits, nullptr, 0);
    }
    platform::HDC target = platform::CreateCompatibleDC(nullptr);
    platform::HDC source = platform::CreateCompatibleDC(nullptr);
    const bool packed = readable &&
                        drawBitmap(loaded, source, readable, target, size.bmWidth, size.bmHeight) &&
                        allocate(size.bmWidth, size.bmHeight);
    if (packed)
        packBitmap(static_cast<const std::uint8_t *>(bits), size.bmWidth, size.bmHeight, pixels());
    platform::DeleteObject(loaded);
    platform::DeleteObject(readable);
    platform::DeleteDC(source);
    platform::DeleteDC(target);
    return packed;
}

} // namespace mygame
