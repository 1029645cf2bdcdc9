#include "platform/host/dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <cstdio>

#include "platform/host/unicode.h"
#include "platform/runtime/errors.h"

namespace cumeron {
namespace {

struct BoxKind {
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton escape;
};

BoxKind KindOf(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::YesNo:
            return {QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
        case BoxButtons::YesNoCancel:
            return {QMessageBox::Question, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                    QMessageBox::Cancel};
        case BoxButtons::RetryCancel:
            return {QMessageBox::Warning, QMessageBox::Retry | QMessageBox::Cancel,
                    QMessageBox::Cancel};
        case BoxButtons::Ok:
            break;
    }
    return {QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok};
}

QMessageBox::Icon IconOf(BoxSign sign, QMessageBox::Icon usual) {
    if (sign == BoxSign::Exclamation) return QMessageBox::Warning;
    return sign == BoxSign::Stop ? QMessageBox::Critical : usual;
}

Answer AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Retry:
            return Answer::Retry;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        default:
            return Answer::Ok;
    }
}

// ---- File dialogs ----

// One kind of files to choose from.
struct FileKind {
    QString description;  // "Data files"
    QString pattern;      // "*.[dD][aA][tT]": file systems here tell capitals from small letters
    QString ending;       // "dat"; "" for files of any ending
    bool programs = false;
};

QString PatternOf(const QString& wanted) {
    if (wanted == "*.*" || wanted.compare("*.exe", Qt::CaseInsensitive) == 0) return "*";
    QString pattern;
    for (const QChar c : wanted) {
        pattern += c.isLetter() ? QString("[%1%2]").arg(c.toLower()).arg(c.toUpper()) : QString(c);
    }
    return pattern;
}

// "Data files (*.dat)|*.dat|All Files (*.*)|*.*"
QList<FileKind> KindsOf(const std::string& filter) {
    const QStringList parts = ToUnicode(filter).split('|');
    QList<FileKind> kinds;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString description = parts[i].section(" (", 0, 0);
        const bool programs = parts[i + 1].compare("*.exe", Qt::CaseInsensitive) == 0;
        const QString ending = parts[i + 1].section("*.", 1, 1).toLower();
        kinds.append({description, PatternOf(parts[i + 1]),
                      ending == "*" || programs ? QString() : ending, programs});
    }
    return kinds;
}

QString NameFilterOf(const FileKind& kind) { return kind.description + " (" + kind.pattern + ")"; }

// A program has no ending of its own here: it is what may be run.
void ShowKind(QFileDialog& dialog, const FileKind& kind) {
    const QDir::Filters shown = QDir::AllDirs | QDir::Files | QDir::Drives | QDir::NoDotAndDotDot;
    dialog.setFilter(kind.programs ? shown | QDir::Executable : shown);
}

void ChangeEnding(QFileDialog& dialog, const QString& ending) {
    dialog.setDefaultSuffix(ending);
    const QStringList chosen = dialog.selectedFiles();
    if (chosen.size() != 1) return;
    const QFileInfo file(chosen.front());
    if (!file.suffix().isEmpty()) dialog.selectFile(file.completeBaseName() + '.' + ending);
}

void OfferKinds(QFileDialog& dialog, const QList<FileKind>& kinds) {
    if (kinds.isEmpty()) return;
    QStringList filters;
    for (const FileKind& kind : kinds) filters.append(NameFilterOf(kind));
    dialog.setNameFilters(filters);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    ShowKind(dialog, kinds.front());
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, kinds, filters](const QString& filter) {
                         const qsizetype chosen = filters.indexOf(filter);
                         if (chosen >= 0) ShowKind(dialog, kinds[chosen]);
                     });
}

// A name without an ending gets that of the kind, and one with the ending of another kind changes
// it with the kind.
void GiveEndings(QFileDialog& dialog, const QList<FileKind>& kinds) {
    dialog.setDefaultSuffix(kinds.front().ending);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, kinds](const QString& filter) {
                         for (const FileKind& kind : kinds) {
                             if (NameFilterOf(kind) == filter) ChangeEnding(dialog, kind.ending);
                         }
                     });
}

// The full name of one file; of several the folder and each name in it.
std::string NamesOf(const QStringList& files) {
    if (files.size() == 1) return FromFileName(files.front().toStdString());
    const QDir folder = QFileInfo(files.front()).dir();
    std::string names = FromFileName(folder.path().toStdString());
    for (const QString& file : files) {
        names += '\0' + FromFileName(folder.relativeFilePath(file).toStdString());
    }
    return names;
}

void SetMode(QFileDialog& dialog, const FileQuestion& question) {
    if (question.forWriting) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setOption(QFileDialog::DontConfirmOverwrite, question.asksItself);
    } else {
        dialog.setFileMode(question.several ? QFileDialog::ExistingFiles
                                            : QFileDialog::ExistingFile);
    }
}

}  // namespace

Answer HostDialogs::MessageBox(const std::string& text, BoxButtons buttons, BoxSign sign) {
    const BoxKind kind = KindOf(buttons);
    if (ToErrorStream) {
        std::fprintf(stderr, "cumeron: %s\n", qPrintable(ToUnicode(text).simplified()));
        return AnswerOf(kind.escape);
    }
    QMessageBox box(IconOf(sign, kind.icon), Title ? ToUnicode(Title()) : QString(),
                    ToUnicode(text), kind.buttons, Owner ? Owner() : nullptr);
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(kind.escape);
    return AnswerOf(box.exec());
}

std::string HostDialogs::ChooseFiles(const FileQuestion& question) {
    QFileDialog dialog(Owner ? Owner() : nullptr, ToUnicode(question.title));
    SetMode(dialog, question);
    const QList<FileKind> kinds = KindsOf(question.filter);
    OfferKinds(dialog, kinds);
    if (question.endingByKind) GiveEndings(dialog, kinds);
    const QFileInfo first(QString::fromStdString(ToFileName(question.fileName)));
    if (first.isAbsolute() && first.dir().exists()) {
        dialog.setDirectory(first.dir());
    } else if (!lastFolder.isEmpty()) {
        dialog.setDirectory(lastFolder);
    }
    if (!question.fileName.empty()) dialog.selectFile(first.fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        throw RuntimeError(32755);
    }
    lastFolder = QFileInfo(dialog.selectedFiles().front()).dir().path();
    return NamesOf(dialog.selectedFiles());
}

void HostDialogs::Beep() {
    if (!ToErrorStream) QApplication::beep();
}

}  // namespace cumeron
