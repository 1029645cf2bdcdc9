// The printers, the clipboard and the windows of the scripted platform: pages are kept as they were
// sent, for the script to look at.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/pictures.h"
#include "platform/printer.h"
#include "platform/surface.h"

namespace cumeron {

// A page that was sent, and how the printer stood then.
struct SentPage {
    std::int16_t orientation = 0, copies = 0;
    double width = 0, height = 0;  // pixels of the printable area
    std::vector<PageOperation> operations;
};

// What the operator chooses in the print setup dialog; what is not named stays.
struct SetupChoice {
    std::optional<std::string> deviceName;
    std::map<PrinterProperty, std::int16_t> properties;
};

// A4 with a quarter of an inch around the printable area. Two printers are installed.
class ScriptedPrinter : public Printer {
public:
    PrinterIdentity Identity() override { return current; }
    std::vector<PrinterIdentity> Printers() override { return installed; }
    void Select(const PrinterIdentity& chosen) override;
    std::int16_t Property(PrinterProperty property) override;
    void SetProperty(PrinterProperty property, std::int16_t value) override;
    // Throws UnansweredBox when nothing was chosen beforehand.
    bool ShowSetup(PrintSetupRecords& records) override;

    // For the next print setup dialogs, in order; nothing cancels the dialog.
    void ChooseNext(std::optional<SetupChoice> choice) { choices.push_back(std::move(choice)); }
    // What the last dialog was called with.
    const PrintSetupRecords& LastRecords() const { return lastRecords; }
    // Pages sent since the last call.
    int TakePages() { return std::exchange(pages, 0); }
    const std::optional<SentPage>& LastPage() const { return lastPage; }

    int nextError = 0;             // what the next page raises; 0: nothing
    bool lacksProperties = false;  // a driver that knows none of them
    std::vector<PrinterIdentity> installed = {{"Office Printer", "winspool", "LPT1:"},
                                              {"Second Printer", "winspool", "LPT2:"}};

private:
    PageSize PrintableArea() override;
    double LineHeight(int points) override;
    void Send(const std::vector<PageOperation>& operations) override;

    PrinterIdentity current = installed.front();
    std::map<PrinterProperty, std::int16_t> properties;  // those that were set
    std::deque<std::optional<SetupChoice>> choices;
    PrintSetupRecords lastRecords;
    std::optional<SentPage> lastPage;
    int pages = 0;
};

class ScriptedClipboard : public Clipboard {
public:
    void Clear() override { picture.reset(); }
    void SetPicture(const Surface& copied) override { picture = copied; }

    std::optional<Surface> picture;
};

// Windows are white; a picture file is a text that says what the picture was.
class ScriptedPictures : public Pictures {
public:
    void GrabWindow(const Form& form, Surface& into) override;
    std::string Encode(const Surface& picture, PictureFormat format,
                       const PictureNotes& notes) override;
};

}  // namespace cumeron
