// The program on a real line: the simulated instrument behind a pseudo terminal, the window
// without a display.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QClipboard>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "shell/message_windows.h"
#include "shell/startup.h"
#include "terminal/terminal.h"
#include "view_support.h"

namespace cumeron {
namespace {

#ifdef SIMULATOR

struct Model {
    const char* name;
    int code;
};

struct SimulatedLine : testing::Test {
    OwnFolders own;
    std::string link = own.Path("line");
    QProcess simulator;

    ~SimulatedLine() override { StopSimulator(); }

    void StartSimulator(const char* model) {
        simulator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        simulator.start(SIMULATOR, {"--model", model, "--link", QString::fromStdString(link),
                                    "--interval", "1", "--units", "ft", "--echo"});
        ASSERT_TRUE(simulator.waitForStarted());
        ASSERT_TRUE(WaitUntil([&] { return ::access(link.c_str(), F_OK) == 0; }));
    }
    void StopSimulator() {
        if (simulator.state() == QProcess::NotRunning) return;
        simulator.kill();
        simulator.waitForFinished();
        ::unlink(link.c_str());
    }
};

struct EndToEnd : SimulatedLine, testing::WithParamInterface<Model> {};

// The workstation as main puts it together.
struct Running {
    HostMachine machine{""};
    Workstation w{machine.platform};
    HostView view{w, machine, w.Forms()};

    explicit Running(const std::string& link, int code) {
        qputenv("CUMERON_COM1", link.c_str());
        machine.files.Replace(
            machine.files.SettingsFolder() + "/CUMERON1.INI",
            "[CUMERON]\r\nPort_open=1\r\nCEILOMETER=" + std::to_string(code) + "\r\n");
        Guarded([&] { StartProgram(w); });
        view.Sync();
    }
    QString Caption(const char* name) {
        return view.WindowOf(w.frmMain)->findChild<QLabel*>(name)->text();
    }
    // A frame was taken whose heights are on the screen.
    bool TakesFrame() {
        w.intake.FrameText.clear();
        w.frmMain.CloudValue[0].Caption = "none";
        return WaitUntil([&] {
            return !w.intake.FrameText.empty() && w.frmMain.CloudValue[0].Caption != "none" &&
                   Caption("CloudValue(0)") ==
                       QString::fromStdString(w.frmMain.CloudValue[0].Caption);
        });
    }
};

TEST_P(EndToEnd, FramesOfTheInstrumentFillTheWindow) {
    StartSimulator(GetParam().name);
    Running program(link, GetParam().code);
    ASSERT_TRUE(program.w.comCTLine().PortOpen());
    EXPECT_TRUE(program.TakesFrame());
    EXPECT_EQ(program.Caption("lblCT"), GetParam().name);
    EXPECT_EQ(program.w.intake.FrameErrorCount, 0);
    EXPECT_TRUE(program.w.frmMain.sbaStatus.Errors_Image_Void.Visible);
}

INSTANTIATE_TEST_SUITE_P(AllModels, EndToEnd,
                         testing::Values(Model{"RV70X", 70}, Model{"RV20X", 20}, Model{"RV10X", 10},
                                         Model{"KN30", 30}, Model{"KN50", 50}, Model{"TQ60", 60}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(SimulatedLine, ReceptionGoesOnWhenALineThatWasAwayReturns) {
    StartSimulator("KN30");
    Running program(link, 30);
    ASSERT_TRUE(program.TakesFrame());
    StopSimulator();
    ASSERT_TRUE(
        WaitUntil([&] { return ErrorOf([&] { program.w.comCTLine().Output("x"); }) == 57; }));
    StartSimulator("KN30");
    EXPECT_TRUE(program.TakesFrame());
    EXPECT_TRUE(program.w.comCTLine().PortOpen());
}

struct ServiceLine : SimulatedLine, testing::WithParamInterface<Model> {};

TEST_P(ServiceLine, AnEnquiryShowsTheInstrumentsReport) {
    StartSimulator(GetParam().name);
    Running program(link, GetParam().code);
    Workstation& w = program.w;
    ASSERT_TRUE(program.TakesFrame());
    mnuShowStatus_Click(w);
    program.view.Sync();
    program.view.WindowOf(w.frmStatus)->findChild<QPushButton*>("Fstatusbutton")->click();
    const std::string& text = w.frmSmsg.stsMessage.Text;
    EXPECT_NE(text.find(GetParam().name), std::string::npos) << text;
    EXPECT_NE(text.find("\r\nNO ALARMS"), std::string::npos) << text;
    EXPECT_EQ(text.find("CEILO>"), std::string::npos) << text;
    EXPECT_EQ(program.view.WindowOf(w.frmSmsg)->findChild<QPlainTextEdit*>()->toPlainText(),
              QString::fromStdString(text).replace("\r\n", "\n"));
    EXPECT_TRUE(program.view.WindowOf(w.frmMain)->isEnabled());
    EXPECT_TRUE(program.TakesFrame()) << "the service line is closed again";
}

TEST_P(ServiceLine, ASessionInTheTerminalSpeaksWithTheInstrument) {
    StartSimulator(GetParam().name);
    Running program(link, GetParam().code);
    Workstation& w = program.w;
    ASSERT_TRUE(program.TakesFrame());
    const std::string& text = w.frmTerminal.txtTerm.Text;
    bool done = false;
    QTimer::singleShot(0, [&] {
        auto* box = program.view.WindowOf(w.frmTerminal)->findChild<QPlainTextEdit*>("txtTerm");
        const auto shows = [&](const char* what) {
            return WaitUntil([&] { return box->toPlainText().contains(what); });
        };
        QTest::keyClicks(box, "OPEN");
        QTest::keyClick(box, Qt::Key_Return);
        EXPECT_TRUE(shows("CEILO>")) << text;
        QGuiApplication::clipboard()->setText("status\n");
        box->paste();
        EXPECT_TRUE(shows("NO ALARMS")) << text;
        EXPECT_TRUE(shows("> status")) << "the echo of the paste: " << text;
        QTest::keyClicks(box, "CLOSE");
        QTest::keyClick(box, Qt::Key_Return);
        EXPECT_TRUE(shows("LINE CLOSED")) << text;
        EXPECT_TRUE(w.frmTerminal.Timer1.Enabled());
        program.view.WindowOf(w.frmTerminal)->close();
        done = true;
    });
    mnuOpenTerminal_Click(w);
    program.view.Sync();
    EXPECT_TRUE(done);
    EXPECT_TRUE(program.TakesFrame()) << "the main window goes on";
}

INSTANTIATE_TEST_SUITE_P(Families, ServiceLine,
                         testing::Values(Model{"KN30", 30}, Model{"RV20X", 20}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(SimulatedLine, AnInstrumentThatGoesAwayInASessionIsTold) {
    StartSimulator("KN30");
    Running program(link, 30);
    Workstation& w = program.w;
    ASSERT_TRUE(program.TakesFrame());
    program.machine.dialogs.ToErrorStream = true;
    bool done = false;
    QTimer::singleShot(0, [&] {
        StopSimulator();
        EXPECT_TRUE(WaitUntil([&] { return ErrorOf([&] { w.comCTLine().Output("x"); }) == 57; }));
        auto* box = program.view.WindowOf(w.frmTerminal)->findChild<QPlainTextEdit*>("txtTerm");
        QTest::keyClicks(box, "a");  // a box tells, and the session goes on
        EXPECT_TRUE(w.frmTerminal.Visible);
        StartSimulator("KN30");
        EXPECT_TRUE(WaitUntil([&] { return !w.frmTerminal.txtTerm.Text.empty(); }));
        program.view.WindowOf(w.frmTerminal)->close();
        done = true;
    });
    mnuOpenTerminal_Click(w);
    EXPECT_TRUE(done);
}

#endif

}  // namespace
}  // namespace cumeron
