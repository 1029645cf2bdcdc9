// Paints texts into drawing surfaces with the fonts of the desktop. The view gives it to every
// surface.
#pragma once

#include <QFont>

#include "platform/surface.h"

namespace cumeron {

class HostTextPainter : public TextPainter {
public:
    HostTextPainter();
    void Paint(Surface& surface, const PrintedText& text) override;
    int TextWidth(const std::string& text) override;
    int TextHeight() override;
    void PaintDrawing(Surface& surface, const std::string& name) override;

private:
    QFont font;
};

}  // namespace cumeron
