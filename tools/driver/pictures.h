// A surface as a picture file. Pure; called by the command `picture`.
#pragma once

#include <string>

#include "platform/surface.h"

namespace cumeron {

// The bytes of the file: portable pixmap (P6), and PNG with 8 bits a colour, not compressed. The
// surface has at least one pixel.
std::string PpmOf(const Surface& surface);
std::string PngOf(const Surface& surface);

}  // namespace cumeron
