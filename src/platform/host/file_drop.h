// Files that the operator drags from the desktop onto a window. The form view makes one for its
// window, which owns it.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

namespace cumeron {

class FileDrop : public QObject {
public:
    using Names = std::vector<std::string>;

    // takes: whether files are welcome now. taken: gets their full names, as the program names
    // files, in an event of its own: the desktop waits for the end of the drop, and what is done
    // with the files may take its time.
    FileDrop(QWidget& window, std::function<bool()> takes, std::function<void(const Names&)> taken);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::function<bool()> takes;
    std::function<void(const Names&)> taken;
    Names dropped;  // and not yet taken
    QTimer later;   // of no length: the event in which they are
};

}  // namespace cumeron
