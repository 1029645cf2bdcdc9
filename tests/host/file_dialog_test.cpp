// The file dialog of the desktop, filled in by a test.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QTimer>

#include "platform/host/dialogs.h"
#include "platform/host/unicode.h"
#include "platform/runtime/errors.h"
#include "support.h"

namespace cumeron {
namespace {

using namespace std::string_literals;

struct FileDialogTest : testing::Test {
    OwnFolders own;
    HostDialogs dialogs;
    FileQuestion question;

    FileDialogTest() {
        QDir().mkpath(QString::fromStdString(own.Path("logs")));
        for (const char* name : {"logs/A.DAT", "logs/b.dat", "logs/C d.DaT", "logs/notes.txt"}) {
            WriteFile(own.Path(name), "x");
        }
        question.filter = "Data files (*.dat)|*.dat|All Files (*.*)|*.*";
        question.fileName = own.Path("logs/A.DAT");
    }
    // What the program gets when the operator does this in the dialog; "error N" when it raises.
    std::string Ask(const std::function<void(QFileDialog&)>& act) {
        QTimer::singleShot(0, [act] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            act(*dialog);
        });
        try {
            return dialogs.ChooseFiles(question);
        } catch (const RuntimeError& error) {
            return "error " + std::to_string(error.Number);
        }
    }
    static void Type(QFileDialog& dialog, const QString& names) {
        auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
        dialog.activateWindow();
        edit->setFocus();
        WaitUntil([&] { return edit->hasFocus(); });
        edit->setText(names);
        QMetaObject::invokeMethod(&dialog, "accept");
    }
    // The names of the files that the dialog offers.
    static QStringList Offered(QFileDialog& dialog, qsizetype wanted) {
        auto* view = dialog.findChild<QAbstractItemView*>("treeView");
        QStringList names;
        WaitUntil([&] {
            names.clear();
            const QModelIndex root = view->rootIndex();
            for (int row = 0; row < view->model()->rowCount(root); ++row) {
                names.append(view->model()->index(row, 0, root).data().toString());
            }
            return names.size() == wanted;
        });
        names.sort();
        return names;
    }
};

TEST_F(FileDialogTest, GivesTheFullNameOfOneFile) {
    EXPECT_EQ(Ask([&](QFileDialog& dialog) { Type(dialog, "C d.DaT"); }), own.Path("logs/C d.DaT"));
}

TEST_F(FileDialogTest, GivesTheFolderAndTheNamesOfSeveral) {
    question.several = true;
    EXPECT_EQ(Ask([&](QFileDialog& dialog) { Type(dialog, "\"b.dat\" \"A.DAT\""); }),
              own.Path("logs") + "\0A.DAT\0b.dat"s);
    question.several = false;
    EXPECT_EQ(Ask([&](QFileDialog& dialog) {
                  EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
                  dialog.reject();
              }),
              "error 32755");
}

TEST_F(FileDialogTest, TheFilterIgnoresCase) {
    QStringList data, all;
    Ask([&](QFileDialog& dialog) {
        data = Offered(dialog, 3);
        dialog.selectNameFilter(dialog.nameFilters().back());
        emit dialog.filterSelected(dialog.nameFilters().back());
        all = Offered(dialog, 4);
        dialog.reject();
    });
    EXPECT_EQ(data, (QStringList{"A.DAT", "C d.DaT", "b.dat"}));
    EXPECT_EQ(all, (QStringList{"A.DAT", "C d.DaT", "b.dat", "notes.txt"}));
}

TEST_F(FileDialogTest, ProgramsAreWhatMayBeRun) {
    WriteFile(own.Path("logs/zip"), "#!/bin/sh\n");
    QFile::setPermissions(QString::fromStdString(own.Path("logs/zip")),
                          QFile::ReadOwner | QFile::ExeOwner);
    question.filter = "Application files (*.exe)|*.exe|All Files (*.*)|*.*";
    QDir::Filters programs, all;
    Ask([&](QFileDialog& dialog) {
        programs = dialog.filter();
        EXPECT_EQ(dialog.nameFilters().front(), "Application files (*)");
        dialog.selectNameFilter(dialog.nameFilters().back());
        emit dialog.filterSelected(dialog.nameFilters().back());
        all = dialog.filter();
        dialog.reject();
    });
    EXPECT_TRUE(programs.testFlag(QDir::Executable));
    EXPECT_FALSE(all.testFlag(QDir::Executable));
}

TEST_F(FileDialogTest, BeginsWithTheNameOrInTheFolderOfTheLastChoice) {
    QString folder, name;
    const auto look = [&](QFileDialog& dialog) {
        folder = dialog.directory().path();
        name = dialog.findChild<QLineEdit*>("fileNameEdit")->text();
        dialog.reject();
    };
    Ask(look);
    EXPECT_EQ(folder.toStdString(), own.Path("logs"));
    EXPECT_EQ(name, "A.DAT");
    Ask([&](QFileDialog& dialog) { Type(dialog, "b.dat"); });
    question.fileName = "";
    Ask(look);
    EXPECT_EQ(folder.toStdString(), own.Path("logs"));
    question.fileName = "/no such folder/x.DAT";
    Ask(look);
    EXPECT_EQ(folder.toStdString(), own.Path("logs"));
}

TEST_F(FileDialogTest, AFileToWriteMayBeNew) {
    question.forWriting = true;
    EXPECT_EQ(Ask([&](QFileDialog& dialog) { Type(dialog, "new.txt"); }), own.Path("logs/new.txt"));
}

TEST_F(FileDialogTest, AsksBeforeItReplacesUnlessTheProgramDoes) {
    question.forWriting = true;
    for (const bool asks : {false, true}) {
        question.asksItself = asks;
        Ask([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.testOption(QFileDialog::DontConfirmOverwrite), asks);
            dialog.reject();
        });
    }
}

TEST_F(FileDialogTest, NamesWithUmlautsAreTextsOfTheProgram) {
    WriteFile(own.Path("logs/\xC3\x9C.DAT"), "x");
    const std::string chosen =
        Ask([&](QFileDialog& dialog) { Type(dialog, QString::fromUtf8("\xC3\x9C.DAT")); });
    EXPECT_EQ(chosen, own.Path("logs") + "/\xDC.DAT");
    EXPECT_EQ(ToFileName(chosen), own.Path("logs/\xC3\x9C.DAT"));
}

TEST_F(FileDialogTest, TheChosenKindGivesTheNameItsEnding) {
    question.filter = "PNG pictures (*.png)|*.png|SVG drawings (*.svg)|*.svg";
    question.fileName = own.Path("logs/graph.png");
    question.forWriting = true;
    question.endingByKind = true;
    EXPECT_EQ(Ask([](QFileDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); }),
              own.Path("logs/graph.png"));
    EXPECT_EQ(Ask([](QFileDialog& dialog) {
                  emit dialog.filterSelected(dialog.nameFilters().back());
                  QMetaObject::invokeMethod(&dialog, "accept");
              }),
              own.Path("logs/graph.svg"));
    EXPECT_EQ(Ask([](QFileDialog& dialog) { Type(dialog, "mine"); }), own.Path("logs/mine.png"));
    question.endingByKind = false;
    EXPECT_EQ(Ask([](QFileDialog& dialog) { Type(dialog, "mine"); }), own.Path("logs/mine"));
}

}  // namespace
}  // namespace cumeron
