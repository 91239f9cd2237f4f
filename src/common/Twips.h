// The unit in which window geometry is kept.
#pragma once

#include <cstdint>

// Twips to a pixel of the screen, fixed.
inline constexpr std::int32_t TwipsPerPixelX = 15;
inline constexpr std::int32_t TwipsPerPixelY = 15;
