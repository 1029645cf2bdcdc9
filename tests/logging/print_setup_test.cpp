#include "logging/print_setup.h"

#include <gtest/gtest.h>

#include "platform/print_records.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "shell/running_program.h"

namespace cumeron {
namespace {

using namespace std::string_literals;

template <class Record>
std::string TextOf(const Record& record, std::size_t offset, std::size_t length) {
    return {record.begin() + static_cast<std::ptrdiff_t>(offset),
            record.begin() + static_cast<std::ptrdiff_t>(offset + length)};
}

std::string Filled(const std::string& text, std::size_t length) {
    return text + std::string(length - text.size(), ' ');
}

TEST(MakeSetupRecords, FillsTheThreeRecordsByteForByte) {
    ScriptedPrinter printer;
    printer.SetProperty(PrinterProperty::Orientation, 2);
    printer.SetProperty(PrinterProperty::Duplex, 3);
    printer.SetProperty(PrinterProperty::Copies, 7);
    const PrintSetupRecords records = MakeSetupRecords(printer, 0x01020304, 64);

    const std::string dialog = "\x42\0\0\0\x04\x03\x02\x01\x01\0\0\0\x02\0\0\0\0\0\0\0\x40\0\0\0"s;
    EXPECT_EQ(TextOf(records.printDlg, 0, 66), dialog + std::string(66 - dialog.size(), '\0'));

    // Copies and colour are not of the fields that are given.
    EXPECT_EQ(TextOf(records.devMode, 0, 122),
              Filled("Office Printer", 32) + "\0\0\0\0"s + "\x7A\0"s + "\0\0"s + "\x03\x10\0\0"s +
                  "\x02\0\x09\0"s + std::string(14, '\0') + "\x03\0"s + std::string(58, '\0'));

    // The third offset counts the 5 of "LPT1:", not the 14 of the device.
    EXPECT_EQ(TextOf(records.devNames, 0, 108),
              "\x08\0\x11\0\x17\0\0\0"s + Filled("winspool\0Office Printer\0LPT1:\0"s, 100));
}

TEST(MakeSetupRecords, LongNamesStayInTheirFields) {
    ScriptedPrinter printer;
    printer.Select({std::string(70, 'd'), std::string(40, 'r'), std::string(30, 'p')});
    const PrintSetupRecords records = MakeSetupRecords(printer, 1, SetupFlags);
    EXPECT_EQ(TextOf(records.devMode, 0, 34), std::string(32, 'd') + "\0\0"s);
    EXPECT_EQ(WordAt(records.devNames, 2), 8 + 1 + 40);
    EXPECT_EQ(WordAt(records.devNames, 4), 8 + 1 + 40 + 1 + 30);
    EXPECT_EQ(TextOf(records.devNames, 8, 100), std::string(40, 'r') + '\0' + std::string(59, 'd'));
}

TEST(MakeSetupRecords, ADriverThatLacksThePropertiesLeavesThemEmpty) {
    ScriptedPrinter printer;
    printer.lacksProperties = true;
    const PrintSetupRecords records = MakeSetupRecords(printer, 1, SetupFlags);
    for (const DevModeField& field : DevModeFields) {
        EXPECT_EQ(WordAt(records.devMode, field.offset), 0);
    }
    EXPECT_EQ(WordAt(records.devMode, dev_mode::Fields), 0x1003);
}

struct PrintSetup : testing::Test, RunningProgram {
    ScriptedPrinter& printer = machine.printer;
    void Setup(std::optional<SetupChoice> choice) {
        printer.ChooseNext(std::move(choice));
        Click(Form().mnuPrintSetup);
    }
    std::string Box() { return machine.dialogs.TakeBox().value_or("no box"); }
    std::vector<int> Properties() {
        std::vector<int> values;
        for (const DevModeField& field : DevModeFields) {
            values.push_back(printer.Property(field.property));
        }
        return values;
    }
};

constexpr std::int16_t Four = 4;

TEST_F(PrintSetup, IsCalledForTheMainWindow) {
    Setup(std::nullopt);
    EXPECT_EQ(TextOf(printer.LastRecords().printDlg, 4, 20),
              "\1\0\0\0\1\0\0\0\2\0\0\0\0\0\0\0\x40\0\0\0"s);
}

TEST_F(PrintSetup, ChangesNothingWhenCancelled) {
    Setup(std::nullopt);
    EXPECT_EQ(Properties(), (std::vector<int>{1, 1, 1, 9, 2}));
    EXPECT_EQ(W().printing.settingsHeld, 0);
    EXPECT_EQ(W().printing.devMode, PrintState().devMode);
    EXPECT_EQ(Box(), "no box");
}

TEST_F(PrintSetup, GivesThePrinterWhatWasChosen) {
    Setup(SetupChoice{std::nullopt,
                      {{PrinterProperty::Orientation, Landscape},
                       {PrinterProperty::PaperSize, std::int16_t{1}},
                       {PrinterProperty::Duplex, std::int16_t{2}},
                       {PrinterProperty::Copies, Four},
                       {PrinterProperty::ColorMode, std::int16_t{1}}}});
    EXPECT_EQ(Properties(), (std::vector<int>{4, 2, 2, 1, 1}));
    EXPECT_EQ(printer.Identity().DeviceName, "Office Printer");
    EXPECT_EQ(printer.TakePages(), 0);
}

TEST_F(PrintSetup, FindsThePrinterByItsNameInCapitals) {
    const struct {
        const char* chosen;
        const char* selected;
    } cases[] = {
        {"second printer", "Second Printer"},
        {"No Such Printer", "Second Printer"},
        {"OFFICE PRINTER", "Office Printer"},
    };
    for (const auto& c : cases) {
        Setup(SetupChoice{c.chosen, {{PrinterProperty::Copies, Four}}});
        EXPECT_EQ(printer.Identity().DeviceName, c.selected) << c.chosen;
        EXPECT_EQ(printer.Property(PrinterProperty::Copies), 4) << c.chosen;
    }
}

TEST_F(PrintSetup, FindsAPrinterWhoseNameTheRecordCannotHold) {
    const std::string name = std::string(31, 'n') + " in the cellar";
    printer.installed.push_back({name, "winspool", "LPT3:"});
    Setup(SetupChoice{name, {}});
    EXPECT_EQ(printer.Identity().DeviceName, name);
}

TEST_F(PrintSetup, AChosenPrinterKeepsItsOwnSettingsWhenItsNameIsInCapitals) {
    printer.Select({"PRINTER", "winspool", "LPT1:"});
    printer.installed = {{"PRINTER", "winspool", "LPT9:"}};
    Setup(SetupChoice{std::nullopt, {}});
    EXPECT_EQ(printer.Identity().Port, "LPT1:") << "it was not chosen anew";
}

TEST_F(PrintSetup, TellsWhatThePrinterRefuses) {
    Setup(SetupChoice{std::nullopt, {{PrinterProperty::Copies, std::int16_t{0}}}});
    EXPECT_NE(Box().find("Error Number: 380"), std::string::npos);
    printer.lacksProperties = true;
    Setup(SetupChoice{std::nullopt,
                      {{PrinterProperty::Orientation, Landscape},
                       {PrinterProperty::PaperSize, std::int16_t{1}},
                       {PrinterProperty::Duplex, std::int16_t{2}},
                       {PrinterProperty::Copies, Four},
                       {PrinterProperty::ColorMode, std::int16_t{1}}}});
    EXPECT_EQ(Box(), "Printer Error. Check that printer is installed.");
}

TEST_F(PrintSetup, LetsEventsRunBeforeItApplies) {
    machine.time.At(0, [&] {
        EXPECT_EQ(printer.Property(PrinterProperty::Copies), 1);
        printer.SetProperty(PrinterProperty::Copies, 2);
    });
    Setup(SetupChoice{std::nullopt, {{PrinterProperty::Copies, Four}}});
    EXPECT_EQ(printer.Property(PrinterProperty::Copies), 4);
}

TEST_F(PrintSetup, IsAppliedAgainBehindEachPage) {
    Setup(SetupChoice{std::nullopt, {{PrinterProperty::Copies, Four}}});
    printer.SetProperty(PrinterProperty::Copies, 2);
    Click(Form().mnuPrintGraph);
    EXPECT_EQ(printer.LastPage()->copies, 2);
    Click(Form().mnuPrintGraph);
    EXPECT_EQ(printer.LastPage()->copies, 4);
}

TEST_F(PrintSetup, WithoutOneNothingIsApplied) {
    printer.SetProperty(PrinterProperty::Copies, 2);
    Click(Form().mnuPrintGraph);
    EXPECT_EQ(printer.Property(PrinterProperty::Copies), 2);
}

}  // namespace
}  // namespace cumeron
