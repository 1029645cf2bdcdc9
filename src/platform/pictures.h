// Pictures on their way out of the program other than by the printer: the clipboard, windows as
// they are seen, and picture files. The commands that copy, print and save the graph call it.
#pragma once

#include <string>

namespace cumeron {

struct Form;
struct Surface;

class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void Clear() = 0;
    virtual void SetPicture(const Surface& picture) = 0;  // as a bitmap
};

enum class PictureFormat { Png, Svg, Pdf };

// What a picture file tells besides the picture; times as "yyyy-mm-dd hh:nn:ss".
struct PictureNotes {
    std::string title;
    std::string firstTime, lastTime;  // of the graph
    std::string savedTime;
};

class Pictures {
public:
    virtual ~Pictures() = default;
    // The window as it is seen, without the frame that the desktop puts around it. into takes its
    // size; a window that is not on the screen gives none.
    virtual void GrabWindow(const Form& form, Surface& into) = 0;
    // The bytes of a file of that format. Raises 5 for a picture of no size.
    virtual std::string Encode(const Surface& picture, PictureFormat format,
                               const PictureNotes& notes) = 0;
};

}  // namespace cumeron
