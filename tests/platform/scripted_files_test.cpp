// Files in memory: names in both styles, the errors of the contract, the disk that fills.
#include <gtest/gtest.h>

#include "platform/runtime/errors.h"
#include "platform/scripted/memory_files.h"

namespace cumeron {
namespace {

template <class Statement>
int ErrorOf(Statement statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

TEST(MemoryFiles, WindowsNamesMeetInOneFile) {
    for (const char* name :
         {"A.DAT", "a.dat", "C:\\CUMERON\\A.DAT", "c:/cumeron/a.dat", "C:A.DAT", "\\CUMERON\\A.DAT",
          "..\\CUMERON\\.\\A.DAT", "C:\\CUMERON\\\\A.DAT", "C:\\..\\CUMERON\\A.DAT"}) {
        MemoryFiles files;
        files.Put("C:\\CUMERON\\A.DAT", "text");
        EXPECT_EQ(files.Content(name), "text") << name;
        EXPECT_TRUE(files.Exists(name)) << name;
    }
    MemoryFiles files;
    files.Put("A.DAT", "text");
    EXPECT_FALSE(files.Exists("D:A.DAT"));
    EXPECT_FALSE(files.Exists("C:\\A.DAT"));
    EXPECT_EQ(files.Names(), std::vector<std::string>{"C:\\CUMERON\\A.DAT"});
}

TEST(MemoryFiles, PosixNamesKeepTheirCase) {
    MemoryFiles files;
    files.SetStyle(PathStyle::Posix);
    files.Put("a", "text");
    EXPECT_EQ(files.Content("/home/user/a"), "text");
    EXPECT_EQ(files.Content("/home/../home/user/./a"), "text");
    EXPECT_FALSE(files.Exists("A"));
    EXPECT_FALSE(files.Exists("/a"));
}

TEST(MemoryFiles, ReadingTellsWhatIsMissing) {
    MemoryFiles files;
    files.Put("A", "text");
    files.MakeFolder("C:\\LOG");
    EXPECT_EQ(files.Read("A"), "text");
    EXPECT_EQ(ErrorOf([&] { files.Read("B"); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Read("C:\\NONE\\B"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Read("E:\\B"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Read("C:\\LOG"); }), 75);
}

TEST(MemoryFiles, AppendingMakesTheFileButNotItsFolder) {
    MemoryFiles files;
    files.Append("A", "one");
    files.Append("a", "two");
    EXPECT_EQ(files.Content("A"), "onetwo");
    files.Append("EMPTY", "");
    EXPECT_EQ(files.Content("EMPTY"), "");
    EXPECT_EQ(ErrorOf([&] { files.Append("C:\\NONE\\A", "x"); }), 76);
    EXPECT_FALSE(files.Exists("C:\\NONE\\A"));
    EXPECT_EQ(ErrorOf([&] { files.Append("C:\\CUMERON", "x"); }), 75);
}

TEST(MemoryFiles, ReplacingMakesTheFolderAsWell) {
    MemoryFiles files;
    files.Replace("C:\\NEW\\DEEP\\A", "one");
    files.Replace("C:\\NEW\\DEEP\\A", "two");
    EXPECT_EQ(files.Content("C:\\NEW\\DEEP\\A"), "two");
    EXPECT_EQ(ErrorOf([&] { files.Replace("E:\\A", "x"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Replace("C:\\NEW", "x"); }), 75);
}

TEST(MemoryFiles, NextOpenFailsOnceOfWhateverKind) {
    MemoryFiles files;
    files.Put("A", "text");
    const std::vector<std::function<void()>> opens = {[&] { files.Read("A"); },
                                                      [&] { files.Append("A", "x"); },
                                                      [&] { files.Replace("A", "x"); }};
    for (const auto& open : opens) {
        files.FailNextOpen("c:\\cumeron\\a", 70);
        files.Put("B", "");
        EXPECT_EQ(files.Read("B"), "");
        EXPECT_EQ(ErrorOf(open), 70);
        EXPECT_EQ(ErrorOf(open), 0);
    }
}

TEST(MemoryFiles, FullDiskTakesNothing) {
    MemoryFiles files;
    files.Put("A", "old");
    files.FillDisk();
    EXPECT_EQ(ErrorOf([&] { files.Append("A", "x"); }), 61);
    EXPECT_EQ(ErrorOf([&] { files.Replace("A", "x"); }), 61);
    EXPECT_EQ(files.Content("A"), "old");
    files.EmptyDisk();
    files.Append("A", "x");
    EXPECT_EQ(files.Content("A"), "oldx");
}

TEST(MemoryFiles, DiskFillsAfterSomeBytesAndKeepsWhatFits) {
    MemoryFiles files;
    files.FillDiskAfter(5);
    files.Append("A", "abc");
    EXPECT_EQ(ErrorOf([&] { files.Append("A", "defg"); }), 61);
    EXPECT_EQ(files.Content("A"), "abcde");
    EXPECT_EQ(ErrorOf([&] { files.Append("A", "h"); }), 61);
    files.FillDiskAfter(3);
    EXPECT_EQ(ErrorOf([&] { files.Replace("A", "long"); }), 61);
    EXPECT_EQ(files.Content("A"), "abcde");
    files.Replace("A", "xy");
    EXPECT_EQ(ErrorOf([&] { files.Append("A", "zz"); }), 61);
    EXPECT_EQ(files.Content("A"), "xyz");
}

TEST(MemoryFiles, NextWriteAloneFails) {
    MemoryFiles files;
    files.FailNextWrite();
    EXPECT_EQ(ErrorOf([&] { files.Append("A", "lost"); }), 61);
    files.Append("A", "kept");
    EXPECT_EQ(files.Content("A"), "kept");
    files.FailNextWrite();
    EXPECT_EQ(ErrorOf([&] { files.Replace("A", "lost"); }), 61);
    EXPECT_EQ(files.Content("A"), "kept");
    files.FailNextWrite();
    files.EmptyDisk();
    files.Append("A", "!");
    EXPECT_EQ(files.Content("A"), "kept!");
}

TEST(MemoryFiles, FreeSpaceIsToldByDrive) {
    MemoryFiles files;
    EXPECT_EQ(files.FreeDiskSpace("C:"), 3000000000.0);
    EXPECT_EQ(files.FreeDiskSpace("E:"), std::nullopt);
    files.SetFreeDiskSpace("c:", 5.0);
    EXPECT_EQ(files.FreeDiskSpace("C:"), 5.0);
    EXPECT_EQ(files.FreeDiskSpace("C:\\"), 5.0);
    EXPECT_EQ(files.FreeDiskSpace("D:"), 3000000000.0);
    files.SetFreeDiskSpace("D:", std::nullopt);
    EXPECT_EQ(files.FreeDiskSpace("D:"), std::nullopt);
    files.SetStyle(PathStyle::Posix);
    EXPECT_EQ(files.FreeDiskSpace("/home/user"), 3000000000.0);
    EXPECT_EQ(files.FreeDiskSpace("/none"), std::nullopt);
    files.SetFreeDiskSpace("/home", 7.0);
    EXPECT_EQ(files.FreeDiskSpace("/home/user"), 7.0);
    EXPECT_EQ(files.FreeDiskSpace("/home/none"), std::nullopt);
    EXPECT_EQ(files.FreeDiskSpace("/tmp"), 3000000000.0);
    files.SetFreeDiskSpace("/mnt", 8.0);
    EXPECT_EQ(files.FreeDiskSpace("/mnt"), 8.0);
}

TEST(MemoryFiles, SettingsFilesFollowTheStyle) {
    MemoryFiles files;
    files.Put(files.SettingsFolder() + "\\CUMERON1.INI", "settings");
    files.Put("OTHER", "text");
    files.SetStyle(PathStyle::Posix);
    EXPECT_EQ(files.Names(), std::vector<std::string>{"/home/user/.config/cumeron/CUMERON1.INI"});
    EXPECT_EQ(files.Read(files.SettingsFolder() + "/CUMERON1.INI"), "settings");
}

TEST(MemoryFiles, EachDriveKeepsTheFolderInWhichItWasLeft) {
    MemoryFiles files;
    files.MakeFolder("D:\\X\\Y");
    files.ChangeFolder("D:\\X\\");
    EXPECT_EQ(files.CurrentFolder(), "D:\\X");
    files.Append("A", "in X");
    EXPECT_EQ(files.Read("D:\\X\\A"), "in X");
    files.ChangeFolder("Y");
    EXPECT_EQ(files.CurrentFolder(), "D:\\X\\Y");
    files.ChangeFolder("c:");
    EXPECT_EQ(files.CurrentFolder(), "C:\\CUMERON");
    files.Append("D:B", "in Y");
    EXPECT_EQ(files.Read("D:\\X\\Y\\B"), "in Y");
    files.ChangeFolder("D:");
    EXPECT_EQ(files.CurrentFolder(), "D:\\X\\Y");
    files.ChangeFolder("..");
    EXPECT_EQ(files.CurrentFolder(), "D:\\X");
    files.ChangeFolder("D:\\");
    EXPECT_EQ(files.CurrentFolder(), "D:\\");
    files.Append("C", "in the root");
    EXPECT_EQ(files.Read("D:\\C"), "in the root");
}

TEST(MemoryFiles, GoingNowhereStaysHere) {
    MemoryFiles files;
    files.Put("A", "");
    const struct {
        const char* folder;
        int error;
    } cases[] = {{"E:", 68}, {"E:\\X", 76}, {"C:\\NONE", 76}, {"A", 76}};
    for (const auto& c : cases) {
        EXPECT_EQ(ErrorOf([&] { files.ChangeFolder(c.folder); }), c.error) << c.folder;
        EXPECT_EQ(files.CurrentFolder(), "C:\\CUMERON");
    }
}

TEST(MemoryFiles, PosixHasOneCurrentFolder) {
    MemoryFiles files;
    files.SetStyle(PathStyle::Posix);
    EXPECT_EQ(files.CurrentFolder(), "/home/user");
    files.MakeFolder("/home/user/log");
    files.ChangeFolder("log/");
    EXPECT_EQ(files.CurrentFolder(), "/home/user/log");
    files.Append("a", "text");
    EXPECT_EQ(files.Read("/home/user/log/a"), "text");
    files.ChangeFolder("/");
    EXPECT_EQ(files.CurrentFolder(), "/");
    EXPECT_EQ(files.Read("home/user/log/a"), "text");
    EXPECT_EQ(ErrorOf([&] { files.ChangeFolder("C:"); }), 76);
}

TEST(MemoryFiles, TellsDrivesAndFolders) {
    MemoryFiles files;
    for (const char* folder : {"C:\\LOG", "C:\\LOG\\Deep", "D:\\Arc"}) files.MakeFolder(folder);
    files.Put("C:\\LOG\\file", "");
    EXPECT_EQ(files.Drives(), (std::vector<std::string>{"C:", "D:"}));
    EXPECT_EQ(files.FoldersIn("C:\\"), (std::vector<std::string>{"CUMERON", "LOG", "WINDOWS"}));
    EXPECT_EQ(files.FoldersIn("c:\\log\\"), std::vector<std::string>{"Deep"});
    EXPECT_EQ(files.FoldersIn("D:"), std::vector<std::string>{"Arc"});
    EXPECT_TRUE(files.FoldersIn("E:\\").empty());
    files.SetStyle(PathStyle::Posix);
    EXPECT_EQ(files.Drives(), std::vector<std::string>{"/"});
    EXPECT_EQ(files.FoldersIn("/home"), std::vector<std::string>{"user"});
    EXPECT_TRUE(files.FoldersIn("/home/user/none").empty());
}

TEST(MemoryFiles, DeletingTellsWhatIsMissing) {
    MemoryFiles files;
    files.Put("A", "text");
    files.Delete("c:\\cumeron\\a");
    EXPECT_FALSE(files.Exists("A"));
    EXPECT_EQ(ErrorOf([&] { files.Delete("A"); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Delete("C:\\CUMERON"); }), 75);
}

TEST(MemoryFiles, AnOpenFileSeesWhatIsAppended) {
    MemoryFiles files;
    files.Put("A", "abcdef");
    const auto file = files.OpenForReading("A");
    char bytes[4] = "...";
    EXPECT_EQ(file->Read(bytes, 3), 3U);
    EXPECT_STREQ(bytes, "abc");
    file->Seek(5);
    EXPECT_EQ(file->Read(bytes, 3), 1U);
    EXPECT_EQ(file->Read(bytes, 3), 0U);
    files.AppendSafely("A", "gh");
    EXPECT_EQ(file->Size(), 8);
    EXPECT_EQ(file->Read(bytes, 3), 2U);
    file->Seek(100);
    EXPECT_EQ(file->Read(bytes, 3), 0U);
    files.Delete("A");
    file->Seek(0);
    EXPECT_EQ(file->Read(bytes, 3), 3U);
    EXPECT_STREQ(bytes, "abc");
    EXPECT_EQ(ErrorOf([&] { files.OpenForReading("A"); }), 53);
    files.Put("A", "");
    files.FailNextOpen("A", 70);
    EXPECT_EQ(ErrorOf([&] { files.OpenForReading("A"); }), 70);
}

TEST(MemoryFiles, SafeAppendingFailsAsAnyOther) {
    MemoryFiles files;
    EXPECT_EQ(ErrorOf([&] { files.AppendSafely("", "x"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.AppendSafely("C:\\NONE\\A", "x"); }), 76);
    files.FillDiskAfter(2);
    EXPECT_EQ(ErrorOf([&] { files.AppendSafely("A", "abc"); }), 61);
    EXPECT_EQ(files.Content("A"), "ab");
}

TEST(MemoryFiles, AFileStaysOpenForAppending) {
    MemoryFiles files;
    files.Put("A", "old");
    const auto file = files.OpenForAppending("a");
    EXPECT_EQ(files.Content("A"), "old");
    file->Write("one");
    files.Append("A", "two");
    file->Write("three");
    EXPECT_EQ(files.Content("A"), "oldonetwothree");
    files.FillDiskAfter(2);
    EXPECT_EQ(ErrorOf([&] { file->Write("four"); }), 61);
    EXPECT_EQ(files.Content("A"), "oldonetwothreefo");
    files.EmptyDisk();
    files.FailNextWrite();
    file->Write("");
    EXPECT_EQ(ErrorOf([&] { file->Write("five"); }), 61);
    files.OpenForAppending("EMPTY");
    EXPECT_EQ(files.Content("EMPTY"), "");
    EXPECT_EQ(ErrorOf([&] { files.OpenForAppending("C:\\NONE\\A"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.OpenForAppending("C:\\CUMERON"); }), 75);
    files.FailNextOpen("A", 70);
    EXPECT_EQ(ErrorOf([&] { files.OpenForAppending("A"); }), 70);
}

TEST(MemoryFiles, TellsWhetherTwoNamesAreOneFile) {
    MemoryFiles files;
    files.Put("A.TXT", "");
    EXPECT_TRUE(files.IsSame("A.TXT", "c:\\cumeron\\a.txt"));
    EXPECT_FALSE(files.IsSame("A.TXT", "B.TXT"));
    EXPECT_FALSE(files.IsSame("B.TXT", "B.TXT")) << "there is none";
    files.SetStyle(PathStyle::Posix);
    files.Put("A.TXT", "");
    EXPECT_TRUE(files.IsSame("A.TXT", "/home/user/A.TXT"));
    EXPECT_FALSE(files.IsSame("A.TXT", "A.txt"));
}

TEST(MemoryFiles, ScriptMakesFoldersButNoDrives) {
    MemoryFiles files;
    files.Put("C:\\LOG\\A", "text");
    files.Append("C:\\LOG\\B", "text");
    files.MakeFolder("D:\\X\\Y");
    files.Append("D:\\X\\Y\\A", "text");
    files.Append("D:\\X\\A", "text");
    EXPECT_EQ(ErrorOf([&] { files.Put("E:\\A", ""); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.MakeFolder("E:\\A"); }), 76);
}

}  // namespace
}  // namespace cumeron
