// Saving the graph as a picture file. The File menu calls it.
#pragma once

#include <optional>
#include <string_view>

#include "platform/pictures.h"

namespace cumeron {

struct Workstation;

// Asks for a name and writes the view as it would be printed, with title and times in the file's
// own notes. Errors are told; the file that was there stays as it was then.
void mnuSaveGraph_Click(Workstation& w);
// By the ending of the name, in either case; nothing for another ending.
std::optional<PictureFormat> FormatOf(std::string_view name);

}  // namespace cumeron
