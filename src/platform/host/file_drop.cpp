#include "platform/host/file_drop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <utility>

#include "platform/host/unicode.h"

namespace cumeron {
namespace {

FileDrop::Names NamesOf(const QDropEvent& drop) {
    FileDrop::Names names;
    for (const QUrl& url : drop.mimeData()->urls()) {
        if (url.isLocalFile()) names.push_back(FromFileName(url.toLocalFile().toStdString()));
    }
    return names;
}

}  // namespace

FileDrop::FileDrop(QWidget& window, std::function<bool()> welcome,
                   std::function<void(const Names&)> take)
    : QObject(&window), takes(std::move(welcome)), taken(std::move(take)) {
    later.setSingleShot(true);
    connect(&later, &QTimer::timeout, this, [this] { taken(std::exchange(dropped, {})); });
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
    const bool enters = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!enters && event->type() != QEvent::Drop) return false;
    auto& drop = *static_cast<QDropEvent*>(event);
    const QWidget* modal = QApplication::activeModalWidget();
    const Names names = NamesOf(drop);
    if (names.empty() || !takes() || (modal != nullptr && modal != watched)) {
        drop.ignore();
        return true;
    }
    drop.acceptProposedAction();
    if (!enters) {
        dropped = names;
        later.start();
    }
    return true;
}

}  // namespace cumeron
