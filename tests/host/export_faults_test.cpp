// The spreadsheet export on a real file system: folders and files that may not be written, disks
// that fill, names of all kinds, and a spreadsheet that reads it.
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QProcess>
#include <QStandardPaths>
#include <csignal>
#include <filesystem>

#include "logging/export.h"
#include "logging/playback.h"
#include "platform/host/files.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "shell/startup.h"
#include "support.h"
#include "workstation.h"

namespace cumeron {
namespace {

namespace fs = std::filesystem;

// The program on real files, short of its windows; the rest of the machine is made up.
struct RealExport {
    ScriptedMachine machine;
    HostFiles files;
    Platform platform{machine.time,      machine.time,    machine.line,  files, machine.dialogs,
                      machine.process,   machine.copies,  machine.ports, {},    machine.printer,
                      machine.clipboard, machine.pictures};
    Workstation w{platform};

    RealExport() {
        StartProgram(w);
        w.settings.CEILOMETER = 20;
        LoadModel(w, LoadedBy::Start);
        w.graphs.ProfileYHigh = 100;
    }
    void Replay(const std::string& log) {
        machine.dialogs.ChooseNext(log);
        OpenOffline(w);
    }
    std::string Boxes() {
        std::string all;
        while (const auto box = machine.dialogs.TakeBox()) all += *box + "|";
        return all;
    }
};

std::string BoxOf(int error) {
    return "The following Error occurred:\r\n\r\n" + ErrorText(error) +
           "\r\nError Number: " + std::to_string(error) + "|";
}

// A detection message, the n-th 15 s after the one before.
std::string LogOf(int records) {
    std::string log = "-Ceilometer Logfile \r\n";
    for (int i = 0; i < records; ++i) {
        log += "-" +
               Format(DateSerial(2026, 5, 1) + 0.5 + i * 15 / 86400.0, "yyyy-mm-dd hh:nn:ss") +
               "\r\n\x01RVA1010\x02\r\n10 01230 ///// ///// 00000000\r\n\x03\r\n\r\n";
    }
    return log;
}

int LinesOf(const std::string& text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

struct ExportFaults : testing::Test {
    OwnFolders own;
    const std::string folder = own.Path("log");
    const std::string log = folder + "/A.DAT", name = folder + "/A.txt";

    ExportFaults() {
        fs::create_directory(folder);
        WriteFile(log, LogOf(40));
    }
};

// The super-user counts as somebody else for as long as this lives.
class NoSuperUser {
public:
    NoSuperUser() : wasRoot(::geteuid() == 0 && ::seteuid(65534) == 0) {}
    ~NoSuperUser() { EXPECT_TRUE(!wasRoot || ::seteuid(0) == 0); }
    NoSuperUser(const NoSuperUser&) = delete;
    NoSuperUser& operator=(const NoSuperUser&) = delete;

private:
    bool wasRoot;
};

TEST_F(ExportFaults, AReadOnlyFolderIsToldAndTheReplayGoesOn) {
    RealExport program;
    const fs::path outside = fs::path(own.Path("log")).parent_path().parent_path();
    for (fs::path path = folder; path != outside; path = path.parent_path()) {
        ::chmod(path.c_str(), 0755);
    }
    ::chmod(folder.c_str(), 0555);
    {
        const NoSuperUser nobody;
        mnuExcel_Click(program.w);
        program.Replay(log);
    }
    ::chmod(folder.c_str(), 0755);
    EXPECT_EQ(program.Boxes(), BoxOf(70) + "End of file|");
    EXPECT_EQ(program.w.offline.OfflineMessageNo, 40);
    EXPECT_EQ(program.w.exporting.ExportFileNo, 0);
    EXPECT_FALSE(fs::exists(name));
}

TEST_F(ExportFaults, AFolderInThePlaceOfTheFileIsTold) {
    RealExport program;
    fs::create_directory(name);
    mnuExcel_Click(program.w);
    program.Replay(log);
    EXPECT_EQ(program.Boxes(), BoxOf(75) + "End of file|");
    EXPECT_EQ(program.w.offline.OfflineMessageNo, 40);
}

TEST_F(ExportFaults, TooManyOpenFilesAreTold) {
    RealExport program;
    program.w.offline.OfflineFileName = log;
    // A sanitized build takes a descriptor when it sees a type for the first time.
    program.platform.dialogs.MessageBox("first", BoxButtons::Ok);
    const int next = ::dup(0);
    ::close(next);
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit small{static_cast<rlim_t>(next), before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &small);
    EXPECT_EQ(OpenExportFile(program.w, log), 0);
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(program.Boxes(), "first|Could not create File for Excel formatted data|");
}

// Replays until the disk is full, gives room, and replays again.
void FillAndGoOn(const std::string& log, const std::string& name,
                 const std::function<void()>& giveRoom) {
    RealExport program;
    mnuExcel_Click(program.w);
    program.Replay(log);
    EXPECT_EQ(program.Boxes(), "End of file|") << "rows are lost without a word";
    EXPECT_EQ(program.w.offline.OfflineMessageNo, 2000);
    const std::string full = ReadFile(name);
    EXPECT_GT(LinesOf(full), 100);
    EXPECT_LT(LinesOf(full), 2000);
    EXPECT_FALSE(full.ends_with("\r\n")) << "the disk filled in the midst of a row";
    giveRoom();
    GotoFileStart(program.w);
    const std::string row = "1-May,12:00:00,0,01230,/////,/////,,";
    EXPECT_TRUE(ReadFile(name).starts_with(full + "\r\n" + row));
    EXPECT_EQ(LinesOf(ReadFile(name)), LinesOf(full) + 2);
    ToolbarCloseFile_Click(program.w);
    EXPECT_EQ(LinesOf(ReadFile(name)), LinesOf(full) + 3);
    EXPECT_EQ(program.Boxes(), "");
}

TEST_F(ExportFaults, ADiskThatFillsInTheMidstOfARowCostsThatRow) {
    const std::string disk = own.Path("disk");
    fs::create_directory(disk);
    if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=512k") != 0) {
        GTEST_SKIP() << "only the super-user can make a small disk";
    }
    WriteFile(disk + "/A.DAT", LogOf(2000));
    WriteFile(disk + "/other", std::string(200000, 'x'));
    FillAndGoOn(disk + "/A.DAT", disk + "/A.txt", [&] { fs::remove(disk + "/other"); });
    EXPECT_EQ(::umount(disk.c_str()), 0);
}

TEST_F(ExportFaults, AQuotaThatEndsInTheMidstOfARowCostsThatRow) {
    WriteFile(log, LogOf(2000));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{100001, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    FillAndGoOn(log, name, [&] { ::setrlimit(RLIMIT_FSIZE, &before); });
}

TEST_F(ExportFaults, AFullDiskAtTheClosedLineIsTold) {
    RealExport program;
    mnuExcel_Click(program.w);
    program.Replay(log);
    program.Boxes();
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{fs::file_size(name) + 5, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    ToolbarCloseFile_Click(program.w);
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(program.Boxes(), BoxOf(61));
    EXPECT_TRUE(ReadFile(name).ends_with("\r\n-File"));
    EXPECT_FALSE(program.w.frmMain.mnuExcel.Checked);
}

TEST_F(ExportFaults, NamesOfAllKindsLieBesideTheLog) {
    const std::pair<std::string, std::string> cases[] = {
        {"A", "A.txt"},
        {"A.B.DAT", "A.txt"},
        {"v1.2/A.DAT", "v1.txt"},
        {"H\xC3\xB6he \xC3\x9C.DAT", "H\xC3\xB6he \xC3\x9C.txt"},
        {"\xC5\xBC.DAT", "\xC5\xBC.txt"},
    };
    for (const auto& [read, written] : cases) {
        fs::create_directories(fs::path(folder + "/" + read).parent_path());
        WriteFile(folder + "/" + read, LogOf(3));
        RealExport program;
        mnuExcel_Click(program.w);
        program.Replay(folder + "/" + read);
        ToolbarCloseFile_Click(program.w);
        EXPECT_EQ(program.Boxes(), "End of file|") << read;
        EXPECT_EQ(LinesOf(ReadFile(folder + "/" + written)), 3 + 2 + 3 + 1) << written;
        EXPECT_EQ(ReadFile(folder + "/" + read), LogOf(3)) << read;
        fs::remove(folder + "/" + written);
    }
}

TEST_F(ExportFaults, AnUmlautNameInTheProgramsOwnBytesIsTheSameFile) {
    WriteFile(folder + "/H\xC3\xB6he.DAT", LogOf(3));
    RealExport program;
    mnuExcel_Click(program.w);
    program.Replay(folder + "/H\xF6he.DAT");
    ToolbarCloseFile_Click(program.w);
    EXPECT_EQ(LinesOf(ReadFile(folder + "/H\xC3\xB6he.txt")), 9);
}

TEST_F(ExportFaults, TheFileThatIsReadIsNotWrittenToThroughALink) {
    fs::create_symlink(log, name);
    RealExport program;
    mnuExcel_Click(program.w);
    program.Replay(log);
    EXPECT_EQ(program.Boxes(), BoxOf(55) + "End of file|");
    EXPECT_EQ(ReadFile(log), LogOf(40));
}

// ---- A spreadsheet ----

using Cells = std::vector<std::vector<std::string>>;

// Line by line, without the empty cells at a line's end, which say nothing.
Cells CellsOf(const std::string& text, const std::string& lineEnd) {
    Cells cells;
    for (const QString& line : QString::fromUtf8(text.c_str()).split(lineEnd.c_str())) {
        std::vector<std::string> row;
        for (const QString& cell : line.split(',')) row.push_back(cell.toStdString());
        while (!row.empty() && row.back().empty()) row.pop_back();
        cells.push_back(std::move(row));
    }
    return cells;
}

// The first eight columns are texts to the spreadsheet, so that the noughts and blanks of the
// instrument stay; the samples have to pass as numbers.
std::string ReadBySpreadsheet(const QString& program, const OwnFolders& own,
                              const std::string& name) {
    const QString out = QString::fromStdString(own.Path("csv"));
    QProcess process;
    process.start(
        program,
        {"-env:UserInstallation=file://" + QString::fromStdString(own.Path("office")), "--headless",
         "--infilter=Text - txt - csv (StarCalc):44,34,1,1,1/2/2/2/3/2/4/2/5/2/6/2/7/2/8/2",
         "--convert-to", "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,false", "--outdir",
         out, QString::fromStdString(name)});
    if (!process.waitForFinished(90000)) return "it did not end";
    return ReadFile((out + "/A.csv").toStdString());
}

TEST_F(ExportFaults, ASpreadsheetReadsTheSameCells) {
    const QString spreadsheet = QStandardPaths::findExecutable("libreoffice");
    if (spreadsheet.isEmpty()) GTEST_SKIP() << "libreoffice is not installed";
    RealExport program;
    Workstation& w = program.w;
    w.intake.MessageId = 15;
    w.graphs.ProfileYHigh = 254;
    std::vector<std::int32_t> profile;
    for (int i = 0; i < 255; ++i) profile.push_back(i * i * 97 - 50000);
    const std::string message =
        "\x01RVA1023\x02\r\n10 01230 00450 ///// 0F000000" + std::string(41, ' ') + " 77\r\n";
    w.exporting.ExportFileNo = OpenExportFile(w, log);
    for (const double time : {0.25, DateSerial(2026, 3, 5) + 0.5}) {
        WriteExportRow(w, profile, time, w.exporting.ExportFileNo, message);
    }
    CloseExportFile(w);
    const std::string written = ReadFile(name);
    EXPECT_NE(written.find("\r\n5-Mar,12:00:00,0,01230,00450,/////, 77,,-50000,-49903,"),
              written.npos)
        << written;
    EXPECT_EQ(CellsOf(ReadBySpreadsheet(spreadsheet, own, name), "\n"), CellsOf(written, "\r\n"));
}

}  // namespace
}  // namespace cumeron
