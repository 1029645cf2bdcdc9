#include "logging/graph_file.h"

#include <gtest/gtest.h>

#include "replay.h"

namespace cumeron {
namespace {

TEST(FormatOf, GoesByTheEnding) {
    const struct {
        const char* name;
        std::optional<PictureFormat> format;
    } cases[] = {
        {"C:\\A.png", PictureFormat::Png},   {"C:\\A.SVG", PictureFormat::Svg},
        {"C:\\A.b.Pdf", PictureFormat::Pdf}, {"C:\\A", std::nullopt},
        {"C:\\A.png.txt", std::nullopt},     {"", std::nullopt},
    };
    for (const auto& c : cases) EXPECT_EQ(FormatOf(c.name), c.format) << c.name;
}

struct SaveGraph : testing::Test, Replay {
    SaveGraph() {
        OpenLog(KnLog(5));
        Box();  // the end of the log
    }
    std::string Content(const char* name) { return machine.files.Content(name).value_or("none"); }
    void Save(const char* name) {
        machine.dialogs.ChooseNext(name);
        Click(Form().mnuSaveGraph);
    }
};

TEST_F(SaveGraph, ProposesANameByTheLastMessage) {
    machine.dialogs.ChooseNext(std::nullopt);
    Click(Form().mnuSaveGraph);
    const FileQuestion& question = machine.dialogs.LastQuestion();
    EXPECT_EQ(question.fileName, "graph-20260501-1201.png");
    EXPECT_TRUE(question.forWriting);
    EXPECT_TRUE(question.endingByKind);
    EXPECT_NE(question.filter.find("|*.svg|"), std::string::npos);
    EXPECT_EQ(Box(), "no box") << "a cancelled dialog tells nothing";
}

TEST_F(SaveGraph, WithoutAMessageTheClockTellsTheTime) {
    OpenLog("");
    Box();
    machine.dialogs.ChooseNext(std::nullopt);
    Click(Form().mnuSaveGraph);
    EXPECT_EQ(machine.dialogs.LastQuestion().fileName, "graph-20260101-0000.png");
}

TEST_F(SaveGraph, WritesThePictureWithTitleAndTimes) {
    const struct {
        const char* name;
        const char* format;
    } cases[] = {{"C:\\G.PNG", "PNG"}, {"C:\\G.svg", "SVG"}, {"C:\\G.Pdf", "PDF"}};
    for (const auto& c : cases) {
        Save(c.name);
        const Surface& page = Form().picPrinting;
        EXPECT_EQ(Content(c.name), std::string(c.format) + " " + std::to_string(page.PixelWidth()) +
                                       " " + std::to_string(page.PixelHeight()) + "\r\n" +
                                       w().shell.MainTitle +
                                       "\r\n2026-05-01 12:00:00\r\n2026-05-01 12:01:15\r\n" +
                                       "2026-01-01 00:00:01\r\n");
        EXPECT_EQ(page.PixelWidth(), Form().picCombination.PixelWidth() + 70);
        EXPECT_EQ(page.Pixel(26, page.PixelHeight() / 2), 0xFFFFFF) << "on paper";
        EXPECT_EQ(Form().picYLabels.BackColor, 0xF0F0F0);
    }
    EXPECT_EQ(machine.printer.TakePages(), 0);
}

TEST_F(SaveGraph, AnotherEndingIsToldAndWritesNothing) {
    Save("C:\\G.BMP");
    EXPECT_EQ(Box(), "The name of the picture must end in .png, .svg or .pdf.");
    EXPECT_EQ(Content("C:\\G.BMP"), "none");
}

TEST_F(SaveGraph, AFileThatCannotBeWrittenStaysAsItWas) {
    machine.files.Put("C:\\G.PNG", "old");
    machine.files.FillDisk();
    Save("C:\\G.PNG");
    EXPECT_NE(Box().find("Error Number: 61"), std::string::npos);
    EXPECT_EQ(Content("C:\\G.PNG"), "old");
    machine.files.EmptyDisk();
    Save("C:\\G.PNG");
    EXPECT_EQ(Content("C:\\G.PNG").substr(0, 3), "PNG");
}

}  // namespace
}  // namespace cumeron
