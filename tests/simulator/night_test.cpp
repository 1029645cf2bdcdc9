// Three days on one line in virtual time: a message each 15 seconds, one in a hundred of them
// spoilt, a log that is cut each six hours and handed to a zip program. What was sent, what stands
// in the logs and what their replay finds are the same.
#include <gtest/gtest.h>

#include "logging/playback.h"
#include "logging/rotation.h"
#include "platform/runtime/dates.h"
#include "platform/scripted/scripted_machine.h"
#include "setups.h"
#include "shell/dispatch.h"
#include "workstation.h"

namespace cumeron::sim {
namespace {

constexpr int Hours = 72, HoursOfAFile = 6, Interval = 15;
constexpr int MessagesSent = Hours * 3600 / Interval;
const double Start = DateSerial(2026, 11, 15) + TimeSerial(12, 0, 0);

struct Night {
    ScriptedMachine machine;
    SimulatedRun run = MakeRun("KN30");
    int sound = 0;

    Night() {
        run.faults = {0.002, 0.002, 0.002, 0.002, 0.002};
        machine.files.Put("C:\\WINDOWS\\CUMERON1.INI",
                          "[CUMERON]\r\nCEILOMETER=30\r\nFile_Length=06:00\r\nEnable_Zip=1\r\n"
                          "Zip_Exe=zip\r\nZip_File_Path=C:\\ARC\r\nLog_File_Path=C:\\LOG\r\n");
        machine.files.MakeFolder("C:\\LOG");
        machine.time.SetNow(Start);
        machine.Start("");
        Click(w().frmMain.mnuOpenPort);
        Click(w().frmMain.mnuLogOn);
    }
    Workstation& w() { return *machine.Program(); }
    void Click(Control& control) {
        machine.Enter([&] { DispatchEvent(w(), control.Click); });
    }
    // In two pieces a second apart, as a slow line delivers them.
    void Send(std::int64_t number) {
        const SentMessage message = MessageOf(run, number);
        sound += message.sound ? 1 : 0;
        const std::size_t cut = message.bytes.empty() ? 0 : message.bytes.size() - 1;
        machine.line.Arrive(message.bytes.substr(0, cut));
        machine.Advance(MicrosPerSecond);
        machine.line.Arrive(message.bytes.substr(cut));
        machine.Advance((Interval - 1) * MicrosPerSecond);
    }
    // Records that a replay of the file shows.
    int Replayed(const std::string& file) {
        machine.dialogs.ChooseNext(file);
        Click(w().frmMain.mnuFileOpen);
        EXPECT_EQ(machine.dialogs.TakeBox(), "End of file") << file;
        return w().offline.OfflineMessageNo;
    }
};

std::string NameOf(int file) {
    const double from = Start + file * HoursOfAFile / 24.0;
    return "A6" + Format(from, "mm") + Format(from, "dd") + Format(from, "hh");
}

// Records of a log by their time lines, which have to lie within its six hours.
int RecordsOf(const std::string& log, int file) {
    const double from = Start + file * HoursOfAFile / 24.0, to = from + HoursOfAFile / 24.0;
    int records = 0;
    for (std::size_t at = log.find("\r\n-2026-"); at != log.npos;
         at = log.find("\r\n-2026-", at + 1)) {
        double time = 0;
        if (ParseRecordDate(std::string_view(log).substr(at + 3, 21), time) != LogRecord) continue;
        ++records;
        EXPECT_GE(time, from - 1e-6) << NameOf(file);
        EXPECT_LT(time, to - 1e-6) << NameOf(file);
    }
    return records;
}

TEST(Night, WhatIsSentIsLoggedAndReplayed) {
    Night night;
    for (int i = 0; i < MessagesSent; ++i) night.Send(i);
    EXPECT_GT(night.sound, MessagesSent * 97 / 100);
    EXPECT_LT(night.sound, MessagesSent);
    night.Click(night.w().frmMain.mnuClosePort);
    night.Click(night.w().frmMain.mnuLogOff);
    EXPECT_EQ(night.machine.dialogs.TakeBox(), std::nullopt);

    int logged = 0, replayed = 0;
    for (int file = 0; file < Hours / HoursOfAFile; ++file) {
        const std::string name = "C:\\LOG\\" + NameOf(file) + ".DAT";
        const std::string log = night.machine.files.Content(name).value_or("");
        const int records = RecordsOf(log, file);
        logged += records;
        EXPECT_GT(records, HoursOfAFile * 3600 / Interval * 9 / 10) << name;
        EXPECT_EQ(night.Replayed(name), records) << name;
        replayed += night.w().offline.OfflineMessageNo;
        ASSERT_FALSE(night.machine.process.started.empty()) << name;
        EXPECT_EQ(night.machine.process.started.front(),
                  "zip -a \"C:\\ARC\\" + NameOf(file) + "\" \"" + name + "\"");
        night.machine.process.started.pop_front();
    }
    EXPECT_EQ(logged, night.sound);
    EXPECT_EQ(replayed, night.sound);
}

}  // namespace
}  // namespace cumeron::sim
