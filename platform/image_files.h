/// Picture files, and the few bitmap calls by which their pixels are read.
#pragma once

#include <cstdint>

#include "platform/window.h"

namespace platform
{

/// A picture in the system's memory. Only bitmaps are ever selected into a context or deleted.
struct Bitmap;
using HBITMAP = Bitmap *;
using HGDIOBJ = Bitmap *;

/// Something to draw into: holds one selected bitmap.
struct DeviceContext;
using HDC = DeviceContext *;

constexpr std::uint32_t DIB_RGB_COLORS = 0;
constexpr std::uint32_t BI_RGB = 0;
constexpr std::uint32_t SRCCOPY = 0x00CC0020;

/// The longest side, in pixels, that a picture file may have.
constexpr std::int32_t kMaxPictureSide = 4096;

struct BITMAP {
    std::int32_t bmType;
    std::int32_t bmWidth;
    std::int32_t bmHeight;
    std::int32_t bmWidthBytes;
    std::uint16_t bmPlanes;
    std::uint16_t bmBitsPixel;
    void *bmBits;
};

struct BITMAPINFOHEADER {
    std::uint32_t biSize;
    std::int32_t biWidth;
    std::int32_t biHeight;
    std::uint16_t biPlanes;
    std::uint16_t biBitCount;
    std::uint32_t biCompression;
    std::uint32_t biSizeImage;
    std::int32_t biXPelsPerMeter;
    std::int32_t biYPelsPerMeter;
    std::uint32_t biClrUsed;
    std::uint32_t biClrImportant;
};

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    std::uint32_t bmiColors[1];
};

/// The shell's image-file loader: decodes a PNG or JPEG file, told apart by what they hold. The caller
/// deletes the result. @return null when the file is missing, no regular file, not a whole valid picture, has
/// a side of 0 or over `kMaxPictureSide`, or its pixels cannot be allocated.
HBITMAP LoadImageFile(const char16_t *path);

/// Describes a bitmap in a BITMAP record. @return the bytes written, 0 when `size` is too small for it.
int GetObjectW(HGDIOBJ object, int size, void *record);

/// Makes a bitmap of 32 bits a pixel (blue, green, red, unused) whose rows are stored bottom up and stay
/// readable at `*bits` until it is deleted. Only that form is made. @return null for any other, or without
/// memory.
HBITMAP CreateDIBSection(HDC context, const BITMAPINFO *info, std::uint32_t usage, void **bits, void *section,
                         std::uint32_t offset);

/// A context without a device, holding no bitmap yet. The argument must be null.
HDC CreateCompatibleDC(HDC context);

/// Puts a bitmap (or null) into a context. @return the one that it replaces.
HGDIOBJ SelectObject(HDC context, HGDIOBJ object);

/// Copies a rectangle between the bitmaps of two contexts, clipped to both. @return 0 when either has none,
/// or for a raster operation other than SRCCOPY.
BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            std::uint32_t rasterOperation);

/// Both do nothing, and return 0, for null.
BOOL DeleteObject(HGDIOBJ object);
BOOL DeleteDC(HDC context);

} // namespace platform
