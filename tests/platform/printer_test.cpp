// The page that is kept until it is whole, and the bytes of the records for the setup dialog.
#include "platform/printer.h"

#include <gtest/gtest.h>

#include "platform/print_records.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_printer.h"

namespace cumeron {
namespace {

struct Page : testing::Test {
    ScriptedPrinter printer;
    Surface picture;

    const PageText& Text(std::size_t i) {
        return std::get<PageText>(printer.LastPage()->operations.at(i));
    }
};

TEST_F(Page, LinesOfTextDoNotLieOnEachOther) {
    printer.FontSize = 11;
    printer.Print("first");
    printer.FontSize = 20;
    printer.Print("second");
    printer.EndDoc();
    printer.Print("of the next page");
    EXPECT_EQ(Text(0).y, 0);
    EXPECT_EQ(Text(1).y, 110);
    EXPECT_EQ(Text(0).points, 11);
    EXPECT_EQ(Text(1).points, 20);
    printer.EndDoc();
    EXPECT_EQ(Text(0).y, 0);
    EXPECT_EQ(printer.TakePages(), 2);
    EXPECT_EQ(printer.TakePages(), 0);
}

TEST_F(Page, TwipsAndPixelsAreTheSamePlaces) {
    EXPECT_DOUBLE_EQ(printer.ScaleWidth(), 4661 * 2.4);
    EXPECT_DOUBLE_EQ(printer.ScaleHeight(), 6716 * 2.4);
    picture.Width = 2;
    picture.Height = 1;
    picture.PSet(1, 0, 0x0000FF);
    printer.PaintPicture(picture, 24, 48, 240, 480);
    printer.ScaleMode = 3;
    EXPECT_EQ(printer.ScaleWidth(), 4661);
    EXPECT_EQ(printer.ScaleHeight(), 6716);
    printer.PaintPicture(picture, 24, 48, 240, 480);
    picture.Cls();
    printer.EndDoc();
    const auto& operations = printer.LastPage()->operations;
    for (std::size_t i = 0; i < 2; ++i) {
        const auto& painted = std::get<PagePicture>(operations.at(i));
        const double unit = i == 0 ? 600.0 / 1440 : 1;
        EXPECT_DOUBLE_EQ(painted.x, 24 * unit);
        EXPECT_DOUBLE_EQ(painted.y, 48 * unit);
        EXPECT_DOUBLE_EQ(painted.width, 240 * unit);
        EXPECT_DOUBLE_EQ(painted.height, 480 * unit);
        EXPECT_EQ(painted.pixelWidth, 2);
        EXPECT_EQ(painted.pixelHeight, 1);
        EXPECT_EQ(painted.pixels, (std::vector<std::uint32_t>{0xFFFFFFFF, 0xFFFF0000}))
            << "as it was then";
    }
}

TEST_F(Page, APageThatFailsOrIsGivenUpLeavesNothingForTheNext) {
    printer.Print("failed");
    printer.nextError = 482;
    EXPECT_THROW(printer.EndDoc(), RuntimeError);
    printer.Print("given up");
    printer.KillDoc();
    EXPECT_EQ(printer.TakePages(), 0);
    printer.Print("good");
    printer.EndDoc();
    EXPECT_EQ(printer.LastPage()->operations.size(), 1U);
    EXPECT_EQ(Text(0).text, "good");
    EXPECT_EQ(Text(0).y, 0);
}

TEST_F(Page, LandscapeTurnsThePage) {
    printer.ScaleMode = 3;
    printer.SetProperty(PrinterProperty::Orientation, Landscape);
    EXPECT_EQ(printer.ScaleWidth(), 6716);
    EXPECT_EQ(printer.ScaleHeight(), 4661);
}

TEST_F(Page, AValueThatThereIsNotIsRefused) {
    const struct {
        PrinterProperty property;
        int value;
        int error;
    } cases[] = {
        {PrinterProperty::Orientation, 0, 380}, {PrinterProperty::Orientation, 3, 380},
        {PrinterProperty::ColorMode, 2, 0},     {PrinterProperty::ColorMode, 3, 380},
        {PrinterProperty::Duplex, 3, 0},        {PrinterProperty::Duplex, 4, 380},
        {PrinterProperty::Copies, 0, 380},      {PrinterProperty::Copies, 300, 0},
    };
    for (const auto& c : cases) {
        int error = 0;
        try {
            printer.SetProperty(c.property, static_cast<std::int16_t>(c.value));
        } catch (const RuntimeError& raised) {
            error = raised.Number;
        }
        EXPECT_EQ(error, c.error) << static_cast<int>(c.property) << " " << c.value;
    }
    EXPECT_EQ(printer.Property(PrinterProperty::Copies), 300);
    printer.Select(printer.installed[1]);
    EXPECT_EQ(printer.Property(PrinterProperty::Copies), 1);
    EXPECT_EQ(printer.Property(PrinterProperty::PaperSize), 9);
    EXPECT_EQ(printer.Property(PrinterProperty::ColorMode), 2);
}

TEST(PrintRecords, NumbersAreLittleEndian) {
    std::array<std::uint8_t, 8> record{};
    PutWord(record, 1, -2);
    PutLong(record, 4, 0x12345678);
    EXPECT_EQ(record, (std::array<std::uint8_t, 8>{0, 0xFE, 0xFF, 0, 0x78, 0x56, 0x34, 0x12}));
    EXPECT_EQ(WordAt(record, 1), -2);
    EXPECT_EQ(WordAt(record, 4), 0x5678);
}

TEST(PrintRecords, TextsOfFixedLengthAreCutOrFilledUp) {
    std::array<std::uint8_t, 6> record{1, 1, 1, 1, 1, 1};
    PutFixedText(record, 1, 4, "AB");
    EXPECT_EQ(record, (std::array<std::uint8_t, 6>{1, 'A', 'B', ' ', ' ', 1}));
    PutFixedText(record, 1, 4, "ABCDEF");
    EXPECT_EQ(record, (std::array<std::uint8_t, 6>{1, 'A', 'B', 'C', 'D', 1}));
}

TEST(PrintRecords, TheNameOfADeviceEndsAtItsFirstNul) {
    const std::string thirtyOne(31, 'x');
    const struct {
        std::string put, got;
    } cases[] = {
        {"Office", "Office"},          {"", ""},
        {thirtyOne, thirtyOne},        {thirtyOne + "yz", thirtyOne},
        {std::string("A\0B", 3), "A"},
    };
    for (const auto& c : cases) {
        PrintSetupRecords records;
        records.devMode.fill('?');
        PutDeviceName(records.devMode, c.put);
        EXPECT_EQ(DeviceNameOf(records.devMode), c.got);
        EXPECT_EQ(records.devMode[31], 0);
        EXPECT_EQ(records.devMode[32], '?');
    }
    PrintSetupRecords asked;
    PutFixedText(asked.devMode, 0, 32, "Office");
    EXPECT_EQ(DeviceNameOf(asked.devMode), "Office") << "without the blanks";
}

}  // namespace
}  // namespace cumeron
