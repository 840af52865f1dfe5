#include "platform/image_files.h"

#include <gtest/gtest.h>

#include "platform/common/picture.h"

namespace platform
{
namespace
{

TEST(Bitmaps, HaveSidesFrom1To4096)
{
    for (const auto &[width, height, isMade] :
         {std::tuple{1, 1, true}, {0, 1, false}, {1, 0, false}, {-1, 1, false}, {4097, 1, false}}) {
        BITMAPINFO info{{sizeof(BITMAPINFOHEADER), width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
        void *bits = nullptr;
        HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        EXPECT_EQ(bitmap != nullptr, isMade) << width << " x " << height;
        DeleteObject(bitmap);
        const auto w = static_cast<std::uint32_t>(width), h = static_cast<std::uint32_t>(height);
        EXPECT_EQ(common::Picture().allocate(w, h), isMade) << width << " x " << height;
    }
}

} // namespace
} // namespace platform
