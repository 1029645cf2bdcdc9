#include "platform/host/way_out.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <csignal>
#include <filesystem>

#include "view_support.h"

namespace cumeron {
namespace {

struct WayOutTest : testing::Test, ViewBench {
    WayOut wayOut{w, machine};

    WayOutTest() {
        ShowMain();
        w.shell.SettingsFile = "CUMERON1.INI";
    }
    bool Saved() { return machine.files.Exists(own.Path("config/cumeron/CUMERON1.INI")); }
};

TEST_F(WayOutTest, ASignalLeavesOutOfAModalForm) {
    InModal(w.frmAbout, {[] { ::raise(SIGTERM); }, [this] { CloseForm(w, w.frmAbout); }});
    EXPECT_EQ(leftWith, 0);
    EXPECT_TRUE(Saved());
}

TEST_F(WayOutTest, WhatIsNotToBeSavedIsNot) {
    w.frmMain.mnuSaveSettings.Checked = false;
    wayOut.Leave();
    EXPECT_EQ(leftWith, 0);
    EXPECT_FALSE(Saved());
}

TEST_F(WayOutTest, TheEndOfTheSessionAsksNothing) {
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &quit);
    EXPECT_EQ(leftWith, 0);
    EXPECT_TRUE(Saved());
}

TEST_F(WayOutTest, BeforeTheSettingsFileIsChosenNothingIsSaved) {
    w.shell.SettingsFile.clear();
    wayOut.Leave();
    EXPECT_EQ(leftWith, 0);
    EXPECT_FALSE(std::filesystem::exists(own.Path("config/cumeron")));
}

TEST_F(WayOutTest, BoxesOnTheWayGetTheCautiousAnswer) {
    machine.dialogs.ToErrorStream = true;
    testing::internal::CaptureStderr();
    EXPECT_EQ(machine.dialogs.MessageBox("One\r\ntwo", BoxButtons::YesNo), Answer::No);
    EXPECT_EQ(machine.dialogs.MessageBox("three", BoxButtons::Ok), Answer::Ok);
    EXPECT_EQ(machine.dialogs.MessageBox("four", BoxButtons::RetryCancel), Answer::Cancel);
    machine.dialogs.Beep();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "cumeron: One two\ncumeron: three\ncumeron: four\n");
}

TEST(WayOut, SignalsKillAgainAfterwards) {
    const OwnFolders own;
    HostMachine machine("1");
    Workstation w(machine.platform);
    { const WayOut wayOut(w, machine); }
    struct sigaction action {};
    ::sigaction(SIGTERM, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
}

}  // namespace
}  // namespace cumeron
