#include "platform/host/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <cerrno>
#include <csignal>

#include "support.h"

namespace cumeron {
namespace {

// Lets no file grow past a length, as a disk does that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
};

struct HostFilesTest : testing::Test {
    OwnFolders own;
    HostFiles files;

    int FilesIn(const std::string& folder) {
        return static_cast<int>(
            QDir(QString::fromStdString(own.Path(folder))).entryList(QDir::Files).size());
    }
};

TEST(FileErrorNumber, KnowsEachRefusal) {
    const struct {
        int code;
        int number;
    } cases[] = {{ENOENT, 53}, {EIO, 57},   {ENOSPC, 61}, {EDQUOT, 61}, {EFBIG, 61},
                 {EACCES, 70}, {EPERM, 70}, {EROFS, 70},  {EISDIR, 75}, {EMFILE, 67},
                 {ENFILE, 67}, {ELOOP, 75}, {ENOTDIR, 76}};
    for (const auto& c : cases) EXPECT_EQ(FileErrorNumber(c.code), c.number) << c.code;
}

TEST_F(HostFilesTest, ReadTellsWhyItCannot) {
    EXPECT_EQ(ErrorOf([&] { files.Read(own.Path("none.INI")); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Read(own.Path("nowhere/none.INI")); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Read(own.Path("config")); }), 75);
}

TEST_F(HostFilesTest, AppendMakesTheFileAndAddsToIt) {
    const std::string name = own.Path("a.DAT");
    EXPECT_FALSE(files.Exists(name));
    files.Append(name, "one\r\n");
    files.Append(name, std::string_view("t\0o", 3));
    EXPECT_TRUE(files.Exists(name));
    EXPECT_EQ(files.Read(name), std::string("one\r\nt\0o", 8));
}

TEST_F(HostFilesTest, AppendTellsWhyItCannot) {
    EXPECT_EQ(ErrorOf([&] { files.Append("/dev/full", "text"); }), 61);
    EXPECT_EQ(ErrorOf([&] { files.Append(own.Path("nowhere/a.DAT"), "text"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Append(own.Path("config"), "text"); }), 75);
    WriteFile(own.Path("file"), "");
    EXPECT_EQ(ErrorOf([&] { files.Append(own.Path("file/a.DAT"), "text"); }), 76);
}

TEST_F(HostFilesTest, AppendKeepsWhatFittedOnAFullDisk) {
    const std::string name = own.Path("a.DAT");
    files.Append(name, "12345");
    {
        const FullDisk full(8);
        EXPECT_EQ(ErrorOf([&] { files.Append(name, "67890"); }), 61);
    }
    EXPECT_EQ(ReadFile(name), "12345678");
}

TEST_F(HostFilesTest, ReplaceMakesTheFolderAndLeavesNothingBeside) {
    const std::string name = own.Path("config/cumeron/CUMERON1.INI");
    files.Replace(name, "old");
    files.Replace(name, "new");
    EXPECT_EQ(ReadFile(name), "new");
    EXPECT_EQ(FilesIn("config/cumeron"), 1);
}

TEST_F(HostFilesTest, ReplaceOnAFullDiskLeavesTheOldFile) {
    const std::string name = own.Path("config/CUMERON1.INI");
    files.Replace(name, "old");
    {
        const FullDisk full(8);
        EXPECT_EQ(ErrorOf([&] { files.Replace(name, "far too long"); }), 61);
    }
    EXPECT_EQ(ReadFile(name), "old");
    EXPECT_EQ(FilesIn("config"), 1);
}

TEST_F(HostFilesTest, ReplaceTellsWhyItCannot) {
    EXPECT_EQ(ErrorOf([&] { files.Replace(own.Path("config"), "text"); }), 75);
    WriteFile(own.Path("file"), "");
    EXPECT_EQ(ErrorOf([&] { files.Replace(own.Path("file/a.INI"), "text"); }), 76);
}

TEST_F(HostFilesTest, ReplaceKeepsRightsAndLinks) {
    const std::string target = own.Path("target.INI");
    const std::string link = own.Path("config/CUMERON1.INI");
    WriteFile(target, "old");
    ::chmod(target.c_str(), 0640);
    ASSERT_EQ(::symlink(target.c_str(), link.c_str()), 0);
    files.Replace(link, "new");
    struct stat found {};
    ASSERT_EQ(::lstat(link.c_str(), &found), 0);
    EXPECT_TRUE(S_ISLNK(found.st_mode));
    ASSERT_EQ(::stat(target.c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, 0640U);
    EXPECT_EQ(ReadFile(target), "new");
}

TEST_F(HostFilesTest, NamesOfTheProgramReachTheFileSystemInItsOwnBytes) {
    const std::string folder = own.Path("config") + "/";
    files.Append(folder + "H\xF6he.DAT", "x");
    EXPECT_EQ(ReadFile(folder + "H\xC3\xB6he.DAT"), "x");
}

TEST_F(HostFilesTest, SettingsFolderFollowsTheEnvironment) {
    EXPECT_EQ(files.SettingsFolder(), own.Path("config/cumeron"));
    qputenv("HOME", "/home/a");
    for (const char* useless : {"", "relative"}) {
        qputenv("XDG_CONFIG_HOME", useless);
        EXPECT_EQ(files.SettingsFolder(), "/home/a/.config/cumeron");
    }
}

TEST_F(HostFilesTest, FreeSpaceIsThatOfTheFolder) {
    EXPECT_GT(files.FreeDiskSpace(own.Path("config")).value_or(0), 0);
    EXPECT_FALSE(files.FreeDiskSpace(own.Path("nowhere")).has_value());
}

TEST_F(HostFilesTest, SafeAppendingDoesAndFailsAsAnyOther) {
    const std::string name = own.Path("a.DAT");
    files.AppendSafely(name, "12345");
    files.AppendSafely(name, "");
    {
        const FullDisk full(8);
        EXPECT_EQ(ErrorOf([&] { files.AppendSafely(name, "67890"); }), 61);
    }
    EXPECT_EQ(ReadFile(name), "12345678");
    files.AppendSafely("/dev/null", "text");
    EXPECT_EQ(ErrorOf([&] { files.AppendSafely("/dev/full", "text"); }), 61);
    EXPECT_EQ(ErrorOf([&] { files.AppendSafely(own.Path("nowhere/a.DAT"), "text"); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.AppendSafely(own.Path("config"), "text"); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.AppendSafely("", "text"); }), 75);
}

TEST_F(HostFilesTest, AnOpenFileSeesWhatIsAppended) {
    const std::string name = own.Path("a.DAT");
    files.Append(name, "abcdef");
    const auto file = files.OpenForReading(name);
    char bytes[4] = "...";
    EXPECT_EQ(file->Read(bytes, 3), 3U);
    EXPECT_STREQ(bytes, "abc");
    file->Seek(6);
    EXPECT_EQ(file->Read(bytes, 3), 0U);
    files.Append(name, "gh");
    EXPECT_EQ(file->Size(), 8);
    EXPECT_EQ(file->Read(bytes, 3), 2U);
    file->Seek(100);
    EXPECT_EQ(file->Read(bytes, 3), 0U);
    EXPECT_EQ(ErrorOf([&] { files.OpenForReading(own.Path("none")); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.OpenForReading(own.Path("nowhere/none")); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.OpenForReading(own.Path("config")); }), 75);
    ASSERT_EQ(::mkfifo(own.Path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(ErrorOf([&] { files.OpenForReading(own.Path("pipe")); }), 75) << "and does not wait";
    for (const int mode : {O_RDONLY, O_WRONLY}) {
        const int other = ::open(own.Path("pipe").c_str(), mode | O_NONBLOCK);
        EXPECT_EQ(ErrorOf([&] { files.OpenForAppending(own.Path("pipe")); }), 75) << mode;
        EXPECT_EQ(ErrorOf([&] { files.Append(own.Path("pipe"), "text"); }), 75) << mode;
        EXPECT_EQ(ErrorOf([&] { files.AppendSafely(own.Path("pipe"), "text"); }), 75) << mode;
        if (other >= 0) ::close(other);
    }
    EXPECT_EQ(ErrorOf([&] { files.OpenForReading("/proc/self/mem")->Read(bytes, 3); }), 57);
}

TEST_F(HostFilesTest, AFileStaysOpenForAppending) {
    const std::string name = own.Path("a.txt");
    WriteFile(name, "old");
    const auto file = files.OpenForAppending(name);
    EXPECT_EQ(ReadFile(name), "old");
    file->Write("one");
    EXPECT_EQ(ReadFile(name), "oldone") << "nothing is held back";
    files.Append(name, "two");
    file->Write(std::string_view("t\0e", 3));
    EXPECT_EQ(ReadFile(name), std::string("oldonetwot\0e", 12));
    {
        const FullDisk full(14);
        EXPECT_EQ(ErrorOf([&] { file->Write("four"); }), 61);
    }
    EXPECT_EQ(ReadFile(name), std::string("oldonetwot\0efo", 14));
    files.OpenForAppending(own.Path("config") + "/H\xF6he.txt");
    EXPECT_EQ(ReadFile(own.Path("config/H\xC3\xB6he.txt")), "");
    EXPECT_EQ(ErrorOf([&] { files.OpenForAppending("/dev/full")->Write("text"); }), 61);
    EXPECT_EQ(ErrorOf([&] { files.OpenForAppending(own.Path("nowhere/a.txt")); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.OpenForAppending(own.Path("config")); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.OpenForAppending(""); }), 75);
}

TEST_F(HostFilesTest, TellsWhetherTwoNamesAreOneFile) {
    const std::string name = own.Path("a.DAT"), link = own.Path("H\xC3\xB6he.txt");
    WriteFile(name, "");
    ASSERT_EQ(::symlink(name.c_str(), link.c_str()), 0);
    EXPECT_TRUE(files.IsSame(name, own.Path("config/../a.DAT")));
    const std::string linkInProgram = own.Path("config") + "/../H\xF6he.txt";
    EXPECT_TRUE(files.IsSame(name, linkInProgram));
    EXPECT_TRUE(files.IsSame(linkInProgram, name));
    EXPECT_FALSE(files.IsSame(name, own.Path("b.DAT")));
    EXPECT_FALSE(files.IsSame(own.Path("b.DAT"), own.Path("b.DAT")));
}

TEST_F(HostFilesTest, DeletingTellsWhatIsMissing) {
    const std::string name = own.Path("a.DAT");
    files.Append(name, "text");
    files.Delete(name);
    EXPECT_FALSE(files.Exists(name));
    EXPECT_EQ(ErrorOf([&] { files.Delete(name); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.Delete(own.Path("config")); }), 75);
}

TEST_F(HostFilesTest, CurrentFolderFollowsAChange) {
    const std::string before = files.CurrentFolder();
    QDir(QString::fromStdString(own.Path("config"))).mkpath(QString::fromUtf8("H\xC3\xB6he"));
    files.ChangeFolder(own.Path("config") + "/H\xF6he");
    EXPECT_EQ(files.CurrentFolder(), own.Path("config") + "/H\xF6he");
    files.Append("a.DAT", "text");
    EXPECT_EQ(ReadFile(own.Path("config/H\xC3\xB6he/a.DAT")), "text");
    EXPECT_EQ(ErrorOf([&] { files.ChangeFolder(own.Path("nowhere")); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.ChangeFolder("a.DAT"); }), 76);
    EXPECT_EQ(files.CurrentFolder(), own.Path("config") + "/H\xF6he");
    files.ChangeFolder(before);
}

TEST_F(HostFilesTest, TellsDrivesAndFolders) {
    QDir config(QString::fromStdString(own.Path("config")));
    for (const char* name : {"b", "a", "H\xC3\xB6he"}) config.mkpath(QString::fromUtf8(name));
    WriteFile(own.Path("config/file"), "");
    EXPECT_EQ(files.FoldersIn(own.Path("config")), (std::vector<std::string>{"H\xF6he", "a", "b"}));
    EXPECT_TRUE(files.FoldersIn(own.Path("nowhere")).empty());
    const std::vector<std::string> drives = files.Drives();
    EXPECT_EQ(drives.front(), "/");
    for (const std::string& drive : drives) {
        EXPECT_TRUE(files.FreeDiskSpace(drive).has_value()) << drive;
        EXPECT_FALSE(drive == "/proc" || drive.starts_with("/dev")) << drive;
    }
}

}  // namespace
}  // namespace cumeron
