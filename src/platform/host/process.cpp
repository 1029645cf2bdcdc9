#include "platform/host/process.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>

#include "platform/host/unicode.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

// Which page shows what a help command asks for.
struct PageRow {
    int command, topic;
    const char* page;
};

constexpr int AnyTopic = -1;

constexpr PageRow Pages[] = {
    {3, AnyTopic, "index.html"},
    {1, 50, "terms.html"},
};

QString PageOf(int command, int topic) {
    const auto* row = std::find_if(std::begin(Pages), std::end(Pages), [&](const PageRow& r) {
        return r.command == command && (r.topic == AnyTopic || r.topic == topic);
    });
    return row == std::end(Pages) ? Pages[0].page : row->page;
}

// A name of the program in the encoding in which Qt hands it to the system.
QString AsSystemName(const std::string& name) {
    return QFile::decodeName(QByteArray::fromStdString(ToFileName(name)));
}

QString FindProgram(const QString& name) {
    if (name.contains('/')) {
        return QStandardPaths::findExecutable(QDir::current().absoluteFilePath(name));
    }
    const QString beside =
        QStandardPaths::findExecutable(name, {QCoreApplication::applicationDirPath()});
    return beside.isEmpty() ? QStandardPaths::findExecutable(name) : beside;
}

}  // namespace

QStringList ManualFolders() {
    const QDir program(QCoreApplication::applicationDirPath());
    return {program.filePath("../share/doc/cumeron/manual"),
            program.filePath("../../../docs/manual")};
}

std::string HostProcess::ApplicationFolder() const {
    return FromUnicode(QCoreApplication::applicationDirPath());
}

void HostProcess::Start(const std::string& program, const std::vector<std::string>& arguments,
                        const std::string&) {
    const QString found = FindProgram(AsSystemName(program));
    QStringList words;
    for (const std::string& argument : arguments) words.append(AsSystemName(argument));
    if (found.isEmpty() || !QProcess::startDetached(found, words)) throw RuntimeError(53);
}

void HostProcess::Help(const std::string&, int command, int topic) {
    for (const QString& folder : manualFolders) {
        const QFileInfo page(QDir(folder), PageOf(command, topic));
        if (!page.exists()) continue;
        const QUrl address = QUrl::fromLocalFile(page.canonicalFilePath());
        if (openPage ? openPage(address) : QDesktopServices::openUrl(address)) return;
    }
    throw RuntimeError(53);
}

}  // namespace cumeron
