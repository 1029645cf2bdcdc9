#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include "platform/host/process.h"
#include "platform/host/unicode.h"
#include "support.h"

namespace cumeron {
namespace {

struct HelpTest : testing::Test {
    OwnFolders own;
    HostProcess process{""};
    QStringList shown;
    bool browser = true;

    HelpTest() {
        process.openPage = [this](const QUrl& address) {
            shown.append(QFileInfo(address.toLocalFile()).fileName());
            return browser;
        };
    }
};

TEST_F(HelpTest, EachCommandHasItsPage) {
    process.Help("/usr/bin/CUMERON.HLP", 3, 0);
    process.Help("CUMERON.HLP", 1, 50);
    process.Help("CUMERON.HLP", 1, 7);
    EXPECT_EQ(shown, (QStringList{"index.html", "terms.html", "index.html"}));
}

TEST_F(HelpTest, WithoutABrowserOrAManualItIsNotFound) {
    browser = false;
    EXPECT_EQ(ErrorOf([&] { process.Help("CUMERON.HLP", 3, 0); }), 53);
    browser = true;
    process.manualFolders = {QString::fromStdString(own.Path("none"))};
    EXPECT_EQ(ErrorOf([&] { process.Help("CUMERON.HLP", 3, 0); }), 53);
}

TEST_F(HelpTest, TheInstalledManualGoesBeforeThatOfTheSources) {
    EXPECT_TRUE(ManualFolders()[0].endsWith("share/doc/cumeron/manual"));
    WriteFile(own.Path("config/index.html"), "");
    process.manualFolders.prepend(QString::fromStdString(own.Path("config")));
    process.openPage = [&](const QUrl& address) {
        shown.append(address.toLocalFile());
        return true;
    };
    process.Help("CUMERON.HLP", 3, 0);
    EXPECT_EQ(shown[0].toStdString(), own.Path("config/index.html"));
}

// A browser in the test's own hand.
struct Browser : QObject {
    Q_OBJECT
public:
    QUrl opened;
public slots:
    void Open(const QUrl& address) { opened = address; }
};

TEST_F(HelpTest, TheDesktopsBrowserIsAsked) {
    Browser desktop;
    QDesktopServices::setUrlHandler("file", &desktop, "Open");
    process.openPage = nullptr;
    EXPECT_EQ(ErrorOf([&] { process.Help("CUMERON.HLP", 3, 0); }), 0);
    QDesktopServices::unsetUrlHandler("file");
    EXPECT_TRUE(desktop.opened.path().endsWith("/index.html"));
}

// Reads all pages of the manual.
struct ManualTest : testing::Test {
    QDir manual{ManualFolders()[1]};
    QString Page(const QString& name) {
        return QString::fromStdString(ReadFile(manual.filePath(name).toStdString()));
    }
    QStringList Pages() { return manual.entryList({"*.html"}); }
};

TEST_F(ManualTest, EveryLinkLeadsToAPageAndPlaceThatIsThere) {
    static const QRegularExpression links("(?:href|src)=\"([^\"#]*)(?:#([^\"]*))?\"");
    ASSERT_GT(Pages().size(), 5);
    for (const QString& name : Pages()) {
        auto found = links.globalMatch(Page(name));
        ASSERT_TRUE(found.hasNext()) << name.toStdString();
        while (found.hasNext()) {
            const auto link = found.next();
            const QString page = link.captured(1).isEmpty() ? name : link.captured(1);
            EXPECT_TRUE(manual.exists(page)) << name.toStdString() << ": " << page.toStdString();
            const QString place = link.captured(2);
            if (place.isEmpty()) continue;
            EXPECT_TRUE(Page(page).contains("id=\"" + place + "\""))
                << name.toStdString() << ": " << page.toStdString() << "#" << place.toStdString();
        }
    }
}

TEST_F(ManualTest, EveryPageIsReachedFromTheContents) {
    const QString contents = Page("index.html");
    for (const QString& name : Pages()) {
        if (name == "index.html") continue;
        EXPECT_TRUE(contents.contains("href=\"" + name + "\"")) << name.toStdString();
        EXPECT_TRUE(Page(name).contains("<html lang=\"en\">")) << name.toStdString();
        EXPECT_TRUE(Page(name).contains("href=\"index.html\"")) << name.toStdString();
    }
}

}  // namespace
}  // namespace cumeron

#include "help_test.moc"
