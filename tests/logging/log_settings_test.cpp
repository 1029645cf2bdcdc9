// The dialog of the log: what it shows, what it refuses and in which order, what it stores.
#include "logging/log_settings.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

TEST(FreeSpaceText, HasOneDecimalPlace) {
    const struct {
        std::int32_t bytes;
        const char* text;
    } cases[] = {
        {0, "0 MB"},       {99999, "0 MB"},           {100000, "0.1 MB"},       {5999999, "5.9 MB"},
        {6000000, "6 MB"}, {1999999999, "1999.9 MB"}, {2000000000, "> 2000 MB"}};
    for (const auto& c : cases) EXPECT_EQ(FreeSpaceText(c.bytes), c.text);
}

class LogSettings : public testing::Test {
protected:
    LogSettings() {
        for (const char* folder : {"C:\\LOG", "C:\\NEW", "D:\\ARC"}) files.MakeFolder(folder);
        w.settings.Log_File_Path = "C:\\LOG";
        w.settings.File_Char = "A";
        w.settings.File_Length = 0.25;
    }
    void UsePosix() {
        files.SetStyle(PathStyle::Posix);
        for (const char* folder : {"/home/user/log", "/arc"}) files.MakeFolder(folder);
        w.settings.Log_File_Path = "/home/user/log";
    }
    // Shows the dialog and lets the operator work in it; a dialog that stays is cancelled then, and
    // this says so.
    bool Stays(const std::function<void()>& work) {
        bool stays = false;
        machine.time.At(0, [&] {
            work();
            stays = form.Loaded;
            if (stays) form.Command2.Click(w);
        });
        w.frmMain.mnuLogSettings.Click(w);
        EXPECT_FALSE(form.Loaded);
        return stays;
    }
    bool OkStays(const std::function<void()>& work) {
        return Stays([&] {
            work();
            form.Command1.Click(w);
        });
    }
    void Look(const std::function<void()>& look) { EXPECT_TRUE(Stays(look)); }
    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }

    ScriptedMachine machine;
    MemoryFiles& files = machine.files;
    Workstation w{machine.platform};
    FrmSetLog& form = w.frmSetLog;
};

TEST_F(LogSettings, ShowWhatIsSet) {
    w.settings.Status_Log = -1;
    w.settings.Enable_Zip = 2;
    w.settings.Zip_File_Path = "D:\\ARC";
    w.settings.Zip_Exe = "Z";
    files.SetFreeDiskSpace("C:", 5999999);
    files.SetFreeDiskSpace("D:", 100000);
    Look([&] {
        EXPECT_EQ(form.medLogFileLength.Text, "06");
        EXPECT_EQ(form.tboFileChar.Text, "A");
        EXPECT_EQ(form.txtLogPath.Text, "C:\\LOG");
        EXPECT_EQ(form.drvLogPath.Drive, "C:");
        EXPECT_EQ(form.dirLogPath.Path, "C:\\LOG");
        EXPECT_EQ(form.lblFreeSpace.Caption, "5.9 MB");
        EXPECT_EQ(form.txtZipPath.Text, "D:\\ARC");
        EXPECT_EQ(form.drvZipPath.Drive, "D:");
        EXPECT_EQ(form.dirZipPath.Path, "D:\\ARC");
        EXPECT_EQ(form.lblFreeZipSpace.Caption, "0.1 MB");
        EXPECT_EQ(form.chkStatusLog.Value, 1);
        EXPECT_EQ(form.chkEnableZip.Value, 1);
        EXPECT_EQ(form.chkDelAfterZip.Value, 0);
        EXPECT_EQ(form.txtZipExe.Text, "Z");
    });
    EXPECT_EQ(Box(), "no box");
}

TEST_F(LogSettings, ShowTheHoursWithTwoDigits) {
    const struct {
        double length;
        const char* shown;
    } cases[] = {{TimeSerial(1, 0, 0), "01"},    {TimeSerial(12, 59, 0), "12"},
                 {TimeSerial(23, 0, 0), "23"},   {TimeSerial(23, 59, 0), "24"},
                 {TimeSerial(23, 59, 59), "24"}, {TimeSerial(0, 30, 0), "00"}};
    for (const auto& c : cases) {
        w.settings.File_Length = c.length;
        Look([&] { EXPECT_EQ(form.medLogFileLength.Text, c.shown); });
    }
}

TEST_F(LogSettings, WithoutAPathShowTheCurrentFolder) {
    for (const char* path : {"", "C"}) {
        w.settings.Log_File_Path = path;
        Look([&] {
            EXPECT_EQ(form.txtLogPath.Text, path);
            EXPECT_EQ(form.drvLogPath.Drive, "C:");
            EXPECT_EQ(form.dirLogPath.Path, "C:\\CUMERON");
        });
    }
}

TEST_F(LogSettings, OpenOnADriveThatHasGone) {
    w.settings.Log_File_Path = "E:\\LOG";
    Look([&] { EXPECT_EQ(form.txtLogPath.Text, "E:\\LOG"); });
    EXPECT_NE(Box().find("Error Number: 68"), std::string::npos);
}

TEST_F(LogSettings, TheStripShowsOnePage) {
    Look([&] {
        EXPECT_TRUE(form.fraLog.Visible);
        EXPECT_FALSE(form.fraZip.Visible);
        EXPECT_TRUE(form.fraZip.Enabled) << "nobody has left its page";
        form.tabLogSet.Selected = 1;
        form.tabLogSet.Click(w);
        EXPECT_FALSE(form.fraLog.Visible || form.fraLog.Enabled);
        EXPECT_TRUE(form.fraZip.Visible && form.fraZip.Enabled);
        form.tabLogSet.Selected = 0;
        form.tabLogSet.Click(w);
        EXPECT_TRUE(form.fraLog.Visible && form.fraLog.Enabled);
        EXPECT_FALSE(form.fraZip.Visible || form.fraZip.Enabled);
    });
}

TEST_F(LogSettings, ADriveLeadsToTheFolderInWhichItWasLeft) {
    files.ChangeFolder("D:\\ARC");
    files.ChangeFolder("C:");
    files.SetFreeDiskSpace("D:", 100000);
    Look([&] {
        form.drvLogPath.Drive = "D: [ARCHIVE]";
        form.drvLogPath.Change(w);
        EXPECT_EQ(form.dirLogPath.Path, "D:\\ARC");
        EXPECT_EQ(form.txtLogPath.Text, "D:\\ARC");
        EXPECT_EQ(form.lblFreeSpace.Caption, "0.1 MB");
        EXPECT_NE(form.lblFreeZipSpace.Caption, "0.1 MB");
    });
    EXPECT_EQ(Box(), "no box");
    Look([&] {
        form.drvZipPath.Drive = "E:";
        form.drvZipPath.Change(w);
        EXPECT_EQ(form.txtZipPath.Text, "");
    });
    EXPECT_NE(Box().find("Error Number: 68"), std::string::npos);
}

TEST_F(LogSettings, AFolderGoesToItsBox) {
    Look([&] {
        form.dirLogPath.Path = "C:\\NEW";
        form.dirLogPath.Change(w);
        EXPECT_EQ(form.txtLogPath.Text, "C:\\NEW");
        form.txtLogPath.Text = "typed";
        form.dirLogPath.Click(w);
        EXPECT_EQ(form.txtLogPath.Text, "C:\\NEW");
        form.dirZipPath.Path = "D:\\ARC";
        form.dirZipPath.Change(w);
        EXPECT_EQ(form.txtZipPath.Text, "D:\\ARC");
    });
}

TEST_F(LogSettings, FindTheZipProgram) {
    Look([&] {
        machine.dialogs.ChooseNext("C:\\PK\\pkzip.exe");
        form.cmdFindZipExe.Click(w);
        EXPECT_EQ(form.txtZipExe.Text, "C:\\PK\\pkzip.exe");
        machine.dialogs.ChooseNext(std::nullopt);
        form.cmdFindZipExe.Click(w);
        EXPECT_EQ(form.txtZipExe.Text, "C:\\PK\\pkzip.exe");
    });
    EXPECT_EQ(Box(), "no box");
}

TEST_F(LogSettings, RefuseInThisOrder) {
    const struct {
        const char *path, *length, *fileChar, *told;
    } cases[] = {
        {"C:\\NONE", "xx", ".", "The Log Path is not valid"},
        {"C:\\NEW", "xx", ".", "The Log file length box was not completely filled"},
        {"", "6_", "A", "The Log file length box was not completely filled"},
        {"", "", "A", "The Log file length box was not completely filled"},
        {"C:\\NEW", "25", ".", "The Log file length should be max 24 hours"},
        {"C:\\NEW", "99", "A", "The Log file length should be max 24 hours"},
        {"C:\\NEW", "00", ".", "Then Log File length should be at least 1 hour"},
        {"C:\\NEW", "-5", "A", "Then Log File length should be at least 1 hour"},
        {"C:\\NEW", "12", ".", "File Char should be Alphanumeric"},
        {"C:\\NEW", "12", "\\", "File Char should be Alphanumeric"},
        {"C:\\NEW", "12", "/", "File Char should be Alphanumeric"},
        {"C:\\NEW", "12", ":", "File Char should be Alphanumeric"},
        {"C:\\NEW", "12", "*", "File Char should be Alphanumeric"},
        {"C:\\NEW", "12", "?", "File Char should be Alphanumeric"},
        {"C:\\NEW", "12", "<", "File Char should be Alphanumeric"},
        {"C:\\NEW", "12", ">", "File Char should be Alphanumeric"},
        {"C:\\NEW", "12", "|", "File Char should be Alphanumeric"},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(OkStays([&] {
            form.txtLogPath.Text = c.path;
            form.medLogFileLength.Text = c.length;
            form.tboFileChar.Text = c.fileChar;
        })) << c.told;
        EXPECT_EQ(Box(), c.told);
        EXPECT_EQ(Box(), "no box");
        EXPECT_EQ(w.settings.Log_File_Path, "C:\\LOG");
        EXPECT_EQ(w.settings.File_Length, 0.25);
        EXPECT_EQ(w.settings.File_Char, "A");
    }
}

TEST_F(LogSettings, RefuseAFolderThatTakesNoFile) {
    EXPECT_TRUE(OkStays([&] {
        files.FailNextOpen("C:\\NEWTEST.TMP", 70);
        form.txtLogPath.Text = "C:\\NEW";
    }));
    EXPECT_NE(Box().find("Error Number: 70"), std::string::npos);
    EXPECT_EQ(files.CurrentFolder(), "C:\\NEW") << "entered before it was tried";
}

TEST_F(LogSettings, StoreTheHours) {
    const struct {
        const char* text;
        double length;
    } cases[] = {{"01", TimeSerial(1, 0, 0)},
                 {"23", TimeSerial(23, 0, 0)},
                 {"24", TimeSerial(23, 59, 59)},
                 {"123", TimeSerial(12, 0, 0)}};
    for (const auto& c : cases) {
        EXPECT_FALSE(OkStays([&] { form.medLogFileLength.Text = c.text; }));
        EXPECT_EQ(w.settings.File_Length, c.length) << c.text;
    }
}

TEST_F(LogSettings, StoreEverything) {
    EXPECT_FALSE(OkStays([&] {
        form.tboFileChar.Text = "K";
        form.txtLogPath.Text = "C:\\NEW";
        form.chkStatusLog.Value = 1;
        form.chkEnableZip.Value = 1;
        form.chkDelAfterZip.Value = 1;
        form.txtZipExe.Text = "Z";
        form.txtZipPath.Text = "D:\\ARC";
    }));
    EXPECT_EQ(w.settings.File_Char, "K");
    EXPECT_EQ(w.settings.Log_File_Path, "C:\\NEW");
    EXPECT_EQ(w.settings.Status_Log, 1);
    EXPECT_EQ(w.settings.Enable_Zip, 1);
    EXPECT_EQ(w.settings.Del_After_Zip, 1);
    EXPECT_EQ(w.settings.Zip_Exe, "Z");
    EXPECT_EQ(w.settings.Zip_File_Path, "D:\\ARC");
    EXPECT_EQ(files.CurrentFolder(), "C:\\NEW");
    EXPECT_FALSE(files.Exists("C:\\NEWTEST.TMP"));
    files.ChangeFolder("D:\\ARC");
    EXPECT_FALSE(OkStays([&] { form.txtLogPath.Text = ""; }));
    EXPECT_EQ(w.settings.Log_File_Path, "");
    EXPECT_EQ(files.CurrentFolder(), "D:\\ARC") << "where free space was asked for last";
}

TEST_F(LogSettings, AMissingZipProgramLeavesTheZipOff) {
    EXPECT_TRUE(OkStays([&] {
        form.tboFileChar.Text = "K";
        form.chkStatusLog.Value = 1;
        form.chkEnableZip.Value = 1;
        form.chkDelAfterZip.Value = 1;
        form.txtZipExe.Text = "";
        form.txtZipPath.Text = "D:\\ARC";
    }));
    EXPECT_EQ(Box(), "Zip Application is not specified");
    EXPECT_EQ(w.settings.File_Char, "K") << "stored before";
    EXPECT_EQ(w.settings.Status_Log, 1);
    EXPECT_EQ(w.settings.Enable_Zip, 0);
    EXPECT_EQ(w.settings.Del_After_Zip, 0);
    EXPECT_EQ(w.settings.Zip_File_Path, "");
}

TEST_F(LogSettings, OnSlashesFollowTheFolder) {
    UsePosix();
    files.SetFreeDiskSpace("/arc", 100000);
    w.settings.Zip_Exe = "Z";
    Look([&] {
        EXPECT_EQ(form.drvLogPath.Drive, "/");
        EXPECT_EQ(form.dirLogPath.Path, "/home/user/log");
        EXPECT_EQ(form.dirZipPath.Path, "/home/user");
        form.dirZipPath.Path = "/arc";
        form.dirZipPath.Change(w);
        EXPECT_EQ(form.lblFreeZipSpace.Caption, "0.1 MB");
        EXPECT_EQ(form.lblFreeSpace.Caption, "> 2000 MB");
        form.drvZipPath.Drive = "/";
        form.drvZipPath.Change(w);
        EXPECT_EQ(form.dirZipPath.Path, "/");
        EXPECT_EQ(form.txtZipPath.Text, "/");
        EXPECT_EQ(form.lblFreeZipSpace.Caption, "> 2000 MB");
        EXPECT_EQ(form.txtZipExe.Text, "Z");
    });
}

TEST_F(LogSettings, OnSlashesTryTheFolderItselfAndStoreItInFull) {
    UsePosix();
    EXPECT_TRUE(OkStays([&] {
        files.FailNextOpen("/home/user/log/TEST.TMP", 70);
        form.txtLogPath.Text = "log/";
    }));
    EXPECT_NE(Box().find("Error Number: 70"), std::string::npos);
    files.ChangeFolder("/home/user");
    EXPECT_FALSE(OkStays([&] { form.txtLogPath.Text = "log"; }));
    EXPECT_EQ(w.settings.Log_File_Path, "/home/user/log");
    EXPECT_EQ(files.CurrentFolder(), "/home/user/log");
}

TEST_F(LogSettings, OnSlashesStoreTheArchiveFolderInFull) {
    UsePosix();
    files.ChangeFolder("/home/user");
    EXPECT_FALSE(OkStays([&] {
        form.txtLogPath.Text = "/arc";
        form.txtZipPath.Text = "log";
    }));
    EXPECT_EQ(w.settings.Zip_File_Path, "/home/user/log") << "before OK goes to the log's folder";
    EXPECT_FALSE(OkStays([&] { form.txtZipPath.Text = ""; }));
    EXPECT_EQ(w.settings.Zip_File_Path, "");
}

TEST_F(LogSettings, OnSlashesOfferTheOwnZipProgram) {
    UsePosix();
    files.SetFreeDiskSpace("/home/user/log", 100000);
    Look([&] {
        EXPECT_EQ(form.txtZipExe.Text, "cumeron-zip");
        EXPECT_EQ(form.txtZipPath.Text, "/home/user/log");
        EXPECT_EQ(form.dirZipPath.Path, "/home/user/log");
        EXPECT_EQ(form.lblFreeZipSpace.Caption, "0.1 MB");
    });
    EXPECT_EQ(w.settings.Zip_Exe, "");
    w.settings.Zip_File_Path = "/arc";
    Look([&] {
        EXPECT_EQ(form.txtZipExe.Text, "");
        EXPECT_EQ(form.txtZipPath.Text, "/arc");
    });
}

}  // namespace
}  // namespace cumeron
