// The clipboard of the desktop, windows as they are seen, and picture files. Part of the host
// platform.
#pragma once

#include <functional>

#include "platform/pictures.h"

class QWidget;

namespace cumeron {

class HostClipboard : public Clipboard {
public:
    void Clear() override;
    void SetPicture(const Surface& picture) override;
};

class HostPictures : public Pictures {
public:
    void GrabWindow(const Form& form, Surface& into) override;
    // PNG keeps the notes as texts (Title, First Time, Last Time, Creation Time), SVG as title and
    // description, PDF as title and in its XMP block.
    std::string Encode(const Surface& picture, PictureFormat format,
                       const PictureNotes& notes) override;

    // The window of a form, in line with the records; null when there is none.
    std::function<QWidget*(const Form&)> Window;
};

}  // namespace cumeron
