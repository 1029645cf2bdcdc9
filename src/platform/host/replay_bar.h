// How far the replay of a log is, at the right end of the menu bar: a bar with the place in the
// file, the records so far, and which file of a set it is. The panels and captions of the window
// stay as they are. The host view makes one for the main window and brings it in line.
#pragma once

#include <QMenuBar>
#include <QProgressBar>

#include "logging/playback.h"

namespace cumeron {

// "12.3 of 233.0 MB, record 1520, file 2 of 3"; the files are left out of a single one.
QString ReplayText(const ReplayProgress& progress);

class ReplayBar : public QProgressBar {
public:
    // The menu bar owns it.
    explicit ReplayBar(QMenuBar& bar);
    // Shown while there is a file to replay.
    void Show(const ReplayProgress& progress);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Arrange();

    QMenuBar& menus;
};

}  // namespace cumeron
