#include "logging/graph_file.h"

#include <string>

#include "logging/graph_picture.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr int Cancelled = 32755;
constexpr double SecondsPerDay = 86400;
constexpr const char* NoteTime = "yyyy-mm-dd hh:nn:ss";

struct Ending {
    std::string_view ending;
    PictureFormat format;
};

constexpr Ending Endings[] = {
    {".png", PictureFormat::Png}, {".svg", PictureFormat::Svg}, {".pdf", PictureFormat::Pdf}};

// "graph-20260501-1200.png", by the last message.
std::string ProposedName(double when) {
    std::string name = "graph-";
    for (const char* part : {"yyyy", "mm", "dd"}) name += Format(when, part);
    name += "-";
    for (const char* part : {"hh", "nn"}) name += Format(when, part);
    return name + ".png";
}

// Of the last message; now, while there is none.
double TimeOfGraph(Workstation& w) {
    const double last = w.graphs.MessageTime;
    return last > 0 ? last : w.platform.clock.Now();
}

std::string AskForName(Workstation& w) {
    FileQuestion question;
    question.title = "Save Graph As";
    question.filter =
        "PNG pictures (*.png)|*.png|SVG drawings (*.svg)|*.svg|PDF documents (*.pdf)|*.pdf";
    question.fileName = ProposedName(TimeOfGraph(w));
    question.forWriting = true;
    question.endingByKind = true;
    return w.platform.dialogs.ChooseFiles(question);
}

// The left edge of the cloud graph is worked out from its newest column, as its time axis is.
PictureNotes NotesOf(Workstation& w) {
    const double last = TimeOfGraph(w);
    const double first =
        last - w.graphs.CurrentColumn * (w.settings.Message_Interval / SecondsPerDay);
    return {w.shell.MainTitle, Format(first, NoteTime), Format(last, NoteTime),
            Format(w.platform.clock.Now(), NoteTime)};
}

void SaveView(Workstation& w, const std::string& name) {
    const std::optional<PictureFormat> format = FormatOf(name);
    if (!format) {
        w.platform.dialogs.MessageBox("The name of the picture must end in .png, .svg or .pdf.",
                                      BoxButtons::Ok);
        return;
    }
    std::string bytes;
    {
        const WhiteLabels labels(w);
        ComposeView(w);
        bytes = w.platform.pictures.Encode(w.frmMain.picPrinting, *format, NotesOf(w));
    }
    w.platform.files.Replace(name, bytes);
}

}  // namespace

void mnuSaveGraph_Click(Workstation& w) {
    try {
        SaveView(w, AskForName(w));
    } catch (const RuntimeError& error) {
        if (error.Number != Cancelled) ReportError(w, error);
    }
}

std::optional<PictureFormat> FormatOf(std::string_view name) {
    const std::string lower = LowerCase(name);
    for (const Ending& ending : Endings) {
        if (lower.ends_with(ending.ending)) return ending.format;
    }
    return std::nullopt;
}

}  // namespace cumeron
