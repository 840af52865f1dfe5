#include "platform/image_files.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

#include "platform/common/picture.h"
#include "platform/device.h"

namespace platform
{

struct Bitmap {
    common::Picture picture;
    bool bottomUp = false;

    std::uint8_t *row(std::int32_t y) { return picture.row(bottomUp ? picture.height - 1 - y : y); }
};

struct DeviceContext {
    Bitmap *selected = nullptr;
};

namespace
{

constexpr std::uint16_t kBitsPerPixel = 32;

bool isReadableForm(const BITMAPINFOHEADER &header)
{
    return header.biSize == sizeof header && header.biWidth > 0 && header.biHeight > 0 &&
           header.biPlanes == 1 && header.biBitCount == kBitsPerPixel && header.biCompression == BI_RGB;
}

/// Cuts a span of `length` that begins at both `a` and `b` down to what lies within both sizes.
void clipSpan(int &a, int sizeA, int &b, int sizeB, int &length)
{
    const int cut = std::max({0, -a, -b});
    a += cut;
    b += cut;
    length = std::min({length - cut, sizeA - a, sizeB - b});
}

} // namespace

HBITMAP LoadImageFile(const char16_t *path)
{
    const std::string file = device().hostFile(path);
    auto bitmap = std::make_unique<Bitmap>();
    return !file.empty() && common::decodePicture(file, bitmap->picture) ? bitmap.release() : nullptr;
}

int GetObjectW(HGDIOBJ object, int size, void *record)
{
    if (!object || size < static_cast<int>(sizeof(BITMAP)))
        return 0;
    const BITMAP description{0,
                             object->picture.width,
                             object->picture.height,
                             static_cast<std::int32_t>(object->picture.rowBytes()),
                             1,
                             kBitsPerPixel,
                             object->bottomUp ? object->picture.pixels.get() : nullptr};
    std::memcpy(record, &description, sizeof description);
    return sizeof description;
}

HBITMAP CreateDIBSection(HDC, const BITMAPINFO *info, std::uint32_t usage, void **bits, void *section,
                         std::uint32_t offset)
{
    const BITMAPINFOHEADER &header = info->bmiHeader;
    if (usage != DIB_RGB_COLORS || section || offset != 0 || !isReadableForm(header))
        return nullptr;
    auto bitmap = std::make_unique<Bitmap>();
    bitmap->bottomUp = true;
    if (!bitmap->picture.allocate(static_cast<std::uint32_t>(header.biWidth),
                                  static_cast<std::uint32_t>(header.biHeight)))
        return nullptr;
    *bits = bitmap->picture.pixels.get();
    return bitmap.release();
}

HDC CreateCompatibleDC(HDC context) { return context ? nullptr : new DeviceContext; }

HGDIOBJ SelectObject(HDC context, HGDIOBJ object) { return std::exchange(context->selected, object); }

BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            std::uint32_t rasterOperation)
{
    Bitmap *to = target->selected;
    Bitmap *from = source->selected;
    if (!to || !from || rasterOperation != SRCCOPY)
        return 0;
    clipSpan(x, to->picture.width, sourceX, from->picture.width, width);
    clipSpan(y, to->picture.height, sourceY, from->picture.height, height);
    if (width < 1)
        return 1;
    constexpr auto kPixelBytes = common::Picture::kPixelBytes;
    for (int row = 0; row < height; ++row) {
        std::memcpy(to->row(y + row) + static_cast<std::size_t>(x) * kPixelBytes,
                    from->row(sourceY + row) + static_cast<std::size_t>(sourceX) * kPixelBytes,
                    static_cast<std::size_t>(width) * kPixelBytes);
    }
    return 1;
}

BOOL DeleteObject(HGDIOBJ object)
{
    delete object;
    return object != nullptr;
}

BOOL DeleteDC(HDC context)
{
    delete context;
    return context != nullptr;
}

} // namespace platform
