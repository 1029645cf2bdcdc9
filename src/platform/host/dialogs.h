// Message boxes and the beep of the desktop. Part of the host platform.
#pragma once

#include <functional>

#include "platform/platform.h"

class QWidget;

namespace cumeron {

class HostDialogs : public Dialogs {
public:
    Answer MessageBox(const std::string& text, BoxButtons buttons,
                      BoxSign sign = BoxSign::None) override;
    void Beep() override;

    // Nobody is there to answer: boxes go to the error stream, with the cautious answer, and there
    // is no beep.
    bool ToErrorStream = false;
    // The window that boxes stand in front of and its title; set by the view.
    std::function<QWidget*()> Owner;
    std::function<std::string()> Title;
};

}  // namespace cumeron
