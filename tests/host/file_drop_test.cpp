#include "platform/host/file_drop.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "view_support.h"

namespace cumeron {
namespace {

struct FileDropTest : testing::Test, ViewBench {
    QMimeData data;
    std::vector<std::string> dropped;
    int drops = 0;

    FileDropTest() {
        ShowSample();
        form.DropFiles = [this](Workstation&, const std::vector<std::string>& names) {
            dropped = names;
            ++drops;
        };
    }
    void Carry(std::initializer_list<const char*> urls) {
        QList<QUrl> list;
        for (const char* url : urls) list.append(QUrl(QString::fromUtf8(url)));
        data.setUrls(list);
    }
    // Whether the window takes what is dragged onto it, and takes it at once.
    bool Drop() { return DropOn(view.WindowOf(form)); }
    bool DropOn(QWidget* window) {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.ignore();
        QCoreApplication::sendEvent(window, &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        drop.ignore();
        QCoreApplication::sendEvent(window, &drop);
        EXPECT_EQ(enter.isAccepted(), drop.isAccepted());
        return drop.isAccepted();
    }
};

TEST_F(FileDropTest, TheFormGetsTheNamesAfterTheDropHasEnded) {
    Carry({"file:///tmp/a%20b.DAT", "file:///tmp/%C3%9Cber.DAT", "file:///tmp/%D0%B6.DAT"});
    EXPECT_TRUE(Drop());
    EXPECT_EQ(drops, 0);
    Settle();
    EXPECT_EQ(drops, 1);
    EXPECT_EQ(dropped, (std::vector<std::string>{"/tmp/a b.DAT",
                                                 "/tmp/\xDC"
                                                 "ber.DAT",
                                                 "/tmp/\xD0\xB6.DAT"}));
}

TEST_F(FileDropTest, OnlyFilesOfThisMachineAreTaken) {
    Carry({"https://example.org/a.DAT", "file:///tmp/b.DAT"});
    EXPECT_TRUE(Drop());
    Settle();
    EXPECT_EQ(dropped, std::vector<std::string>{"/tmp/b.DAT"});
    Carry({"https://example.org/a.DAT"});
    EXPECT_FALSE(Drop());
    data.clear();
    data.setText("no file");
    EXPECT_FALSE(Drop());
    Settle();
    EXPECT_EQ(drops, 1);
}

TEST_F(FileDropTest, AFormThatTakesNoneOrIsDisabledRefuses) {
    Carry({"file:///tmp/a.DAT"});
    form.Enabled = false;
    EXPECT_FALSE(Drop());
    form.Enabled = true;
    form.DropFiles = nullptr;
    EXPECT_FALSE(Drop());
}

TEST_F(FileDropTest, NothingIsTakenBehindADialog) {
    Carry({"file:///tmp/a.DAT"});
    InModal(w.frmAbout, {[&] { EXPECT_FALSE(Drop()); }, [&] { UnloadForm(w, w.frmAbout); }});
    EXPECT_TRUE(Drop());
}

TEST_F(FileDropTest, ALogOnTheDiskIsReplayed) {
    StartProgram(w);
    view.Sync();
    Settle();
    w.settings.CEILOMETER = 20;
    LoadModel(w, LoadedBy::Start);
    const std::string record = "\x01RVA1010\x02\r\n10 01230 ///// ///// 00000000\r\n\x03\r\n\r\n";
    std::string log;
    for (int i = 10; i < 60; ++i) log += "-2026-05-01 12:00:" + std::to_string(i) + "\r\n" + record;
    WriteFile(own.Path("a \xC3\x9C.DAT"), log);
    QString told;
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        told += box->text();
        box->accept();
    });
    closing.start(10);
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(own.Path("a \xC3\x9C.DAT")))});
    QWidget* window = view.WindowOf(w.frmMain);
    EXPECT_TRUE(DropOn(window));
    EXPECT_TRUE(WaitUntil([&] { return told == "End of file"; })) << told.toStdString();
    EXPECT_EQ(w.offline.OfflineMessageNo, 50);
    EXPECT_EQ(w.offline.OfflineFileName, own.Path("a ") + "\xDC.DAT");
    EXPECT_TRUE(window->windowTitle().endsWith(QString::fromUtf8("a \xC3\x9C.DAT]")));
    EXPECT_EQ(w.offline.progress.position, static_cast<std::int64_t>(log.size()));
}

}  // namespace
}  // namespace cumeron
