#include "platform/scripted/scripted_printer.h"

#include "platform/form.h"
#include "platform/print_records.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_dialogs.h"

namespace cumeron {

namespace {

constexpr PageSize A4{4661, 6716};  // pixels of the printable area, upright
constexpr double LinesPerFont = 1.2;
constexpr int PointsPerInch = 72;

std::int16_t FirstValue(PrinterProperty property) {
    constexpr std::int16_t a4 = 9, inColour = 2;
    if (property == PrinterProperty::PaperSize) return a4;
    return property == PrinterProperty::ColorMode ? inColour : 1;
}

// Two ways to lie, two kinds of colour, three ways to turn a sheet over.
std::int16_t HighestValue(PrinterProperty property) {
    if (property == PrinterProperty::Orientation || property == PrinterProperty::ColorMode) {
        return 2;
    }
    return property == PrinterProperty::Duplex ? 3 : 9999;
}

}  // namespace

void ScriptedPrinter::Select(const PrinterIdentity& chosen) {
    current = chosen;
    properties.clear();
}

std::int16_t ScriptedPrinter::Property(PrinterProperty property) {
    if (lacksProperties || installed.empty()) throw RuntimeError(482);
    const auto found = properties.find(property);
    return found == properties.end() ? FirstValue(property) : found->second;
}

void ScriptedPrinter::SetProperty(PrinterProperty property, std::int16_t value) {
    if (lacksProperties || installed.empty()) throw RuntimeError(482);
    if (value < 1 || value > HighestValue(property)) throw RuntimeError(380);
    properties[property] = value;
}

bool ScriptedPrinter::ShowSetup(PrintSetupRecords& records) {
    lastRecords = records;
    if (choices.empty()) throw UnansweredBox{"print setup dialog"};
    const std::optional<SetupChoice> choice = std::move(choices.front());
    choices.pop_front();
    if (!choice) return false;
    PutDeviceName(records.devMode, choice->deviceName.value_or(current.DeviceName));
    for (const DevModeField& field : DevModeFields) {
        const auto chosen = choice->properties.find(field.property);
        const std::int16_t value =
            chosen != choice->properties.end() ? chosen->second : Property(field.property);
        PutWord(records.devMode, field.offset, value);
    }
    return true;
}

PageSize ScriptedPrinter::PrintableArea() {
    if (installed.empty()) throw RuntimeError(482);
    const auto found = properties.find(PrinterProperty::Orientation);
    const bool landscape = found != properties.end() && found->second == Landscape;
    return landscape ? PageSize{A4.height, A4.width} : A4;
}

double ScriptedPrinter::LineHeight(int points) {
    return points * LinesPerFont * PagePixelsPerInch / PointsPerInch;
}

void ScriptedPrinter::Send(const std::vector<PageOperation>& operations) {
    if (const int error = std::exchange(nextError, 0)) throw RuntimeError(error);
    const PageSize size = PrintableArea();
    SentPage sent{Portrait, 1, size.width, size.height, operations};
    ResumeNext([&] { sent.orientation = Property(PrinterProperty::Orientation); });
    ResumeNext([&] { sent.copies = Property(PrinterProperty::Copies); });
    lastPage = sent;
    ++pages;
}

void ScriptedPictures::GrabWindow(const Form& form, Surface& into) {
    into.Width = form.WindowState == 1 ? 0 : form.ScaleWidth();
    into.Height = form.WindowState == 1 ? 0 : form.ScaleHeight();
    into.Cls();
}

std::string ScriptedPictures::Encode(const Surface& picture, PictureFormat format,
                                     const PictureNotes& notes) {
    if (picture.PixelWidth() == 0 || picture.PixelHeight() == 0) throw RuntimeError(5);
    constexpr const char* names[] = {"PNG", "SVG", "PDF"};
    return std::string(names[static_cast<int>(format)]) + " " +
           std::to_string(picture.PixelWidth()) + " " + std::to_string(picture.PixelHeight()) +
           "\r\n" + notes.title + "\r\n" + notes.firstTime + "\r\n" + notes.lastTime + "\r\n" +
           notes.savedTime + "\r\n";
}

}  // namespace cumeron
