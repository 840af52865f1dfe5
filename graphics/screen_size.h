/// The screen that every picture and every layout is made for.
#pragma once

#include <cstdint>

namespace mygame
{

/// In pixels, upright.
constexpr std::int32_t kScreenWidth = 240;
constexpr std::int32_t kScreenHeight = 320;

constexpr std::int32_t kScreenCentreX = kScreenWidth / 2;
constexpr std::int32_t kScreenCentreY = kScreenHeight / 2;

} // namespace mygame
