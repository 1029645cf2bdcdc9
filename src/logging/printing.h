// Printing and copying of the graphs: by command, by itself when the strip is full or a replay has
// ended, and the whole window. Menus, the cloud graph and the replay call it.
#pragma once

#include <functional>

namespace cumeron {

struct Workstation;

// Where an error while printing goes: to a box, or, where a box would stop the reception until
// somebody comes, to the message window.
enum class PrintErrors { ToBox, ToMessageWindow };

void mnuPrintGraph_Click(Workstation& w);
void mnuAutoPrint_Click(Workstation& w);
void mnuPrintScreen_Click(Workstation& w);
void mnuCopyPicture_Click(Workstation& w);
// The cloud graph on a page of its own, in landscape, with "Printing Graph" in the status bar
// meanwhile. No events run; never throws.
void PrintGraph(Workstation& w, PrintErrors errors);
// Runs the step; its error is told, a printer's in its own words.
void TellPrintErrors(Workstation& w, const std::function<void()>& step,
                     PrintErrors errors = PrintErrors::ToBox);

// The size in which a picture goes on the page, in pixels.
struct FittedSize {
    int width, height;
};
// As wide as the page; of a picture too high for that as high as the page less the room above and
// below it. Raises 11 for a picture of no size, 482 for a page without that room.
FittedSize FitToPage(int pictureWidth, int pictureHeight, double pageWidth, double pageHeight);

}  // namespace cumeron
