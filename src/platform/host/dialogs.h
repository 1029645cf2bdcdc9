// Message boxes, file dialogs and the beep of the desktop. Part of the host platform.
#pragma once

#include <QString>
#include <functional>

#include "platform/platform.h"

class QWidget;

namespace cumeron {

class HostDialogs : public Dialogs {
public:
    Answer MessageBox(const std::string& text, BoxButtons buttons,
                      BoxSign sign = BoxSign::None) override;
    void Beep() override;
    // Filters ignore case, "*.*" means all files and "*.exe" programs. A dialog without a name to
    // begin with begins in the folder of the last choice.
    std::string ChooseFiles(const FileQuestion& question) override;

    // Nobody is there to answer: boxes go to the error stream, with the cautious answer, and there
    // is no beep.
    bool ToErrorStream = false;
    // The window that boxes stand in front of and its title; set by the view.
    std::function<QWidget*()> Owner;
    std::function<std::string()> Title;

private:
    QString lastFolder;  // of the last choice; empty: none yet
};

}  // namespace cumeron
