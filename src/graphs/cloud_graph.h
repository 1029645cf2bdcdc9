// What one message paints into the cloud graph: a column of colours from its profile, and points at
// its cloud heights. The columns (cloud_columns.h) call it.
#pragma once

#include <cstdint>
#include <span>

namespace cumeron {

struct Surface;
struct Workstation;

// The profile between low and high (height steps), from the foot of the column upwards. Values
// below the lowest limit of the colours leave what stands there. Raises 9 when the profile is
// shorter than the limits.
void DrawIntensityColumn(Workstation& w, std::span<const std::int32_t> profile, std::int16_t low,
                         std::int16_t high, Surface& surface, int column);
// The heights in the captions of CloudValue; fills CloudHitHeights. Leaves its scale on the
// surface.
void DrawCloudHits(Workstation& w, std::int16_t low, std::int16_t high, Surface& surface,
                   int column);

}  // namespace cumeron
