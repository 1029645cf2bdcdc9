// An export; every line ends in CR LF:
//
//     Ceilometer Measurement data profile in the Excel suitable format (comma as column separator)
//     The unit of the data is [10000*srad*km]^-1
//     File created: DATE TIME
//     ,,Status,Height1,Height2,Height3,Sig. Sum,Feets,0,100,200 ...    heights of the samples
//     ,,,Feets,Feets,Feets,,Meters,0,30,60 ...
//     1-May,12:00:00,0,01230,/////,/////,123,,-3,7,17 ...              a message
//     ... further messages
//     -File Closed: DATE TIME           missing when the program died or the disk filled up
//
// A log that is exported again goes on behind the closed line with new head lines.
#include "logging/export.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>
#include <vector>

#include "logging/file_set.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::int16_t Channel = 2;  // the off-line file has 1
constexpr int AlreadyOpen = 55, TooManyFiles = 67;
constexpr std::string_view LineEnd = "\r\n";
constexpr double LastTimeWithoutDate = 1;

bool IsKn(const Workstation& w) { return w.model.family == Family::KN; }

// ---- Samples ----

struct LastSample {
    std::int16_t id;
    int index;
};

// Ids that do not stand here end where the profile plot ends.
constexpr LastSample LastSamples[] = {
    {3111, 770}, {3114, 770}, {3121, 770}, {3124, 770},  {3112, 385},  {3122, 385},  {3115, 0},
    {3118, 0},   {3125, 0},   {3128, 0},   {3116, 1540}, {3126, 1540}, {3123, 1500},
};

// Indexes of a profile; none when last lies below first.
struct SampleRange {
    int first, last;
    std::size_t Count() const { return static_cast<std::size_t>(std::max(last - first + 1, 0)); }
};

// kept: the plot's lower limit, a height step, counts as an index, whatever the resolution, and so
// do its upper one and the lengths of the table: a sheet made for one range fits all later exports
// with that setting.
SampleRange ExportedSamples(const Workstation& w) {
    const std::int16_t id = w.intake.MessageId;
    const auto* row = std::find_if(std::begin(LastSamples), std::end(LastSamples),
                                   [&](const LastSample& r) { return r.id == id; });
    const bool listed = row != std::end(LastSamples);
    return {w.graphs.ProfileYLow, listed ? row->index : w.graphs.ProfileYHigh};
}

std::span<const std::int32_t> Samples(std::span<const std::int32_t> profile, SampleRange range) {
    if (range.Count() == 0) return {};
    if (range.first < 0 || static_cast<std::size_t>(range.last) >= profile.size()) {
        throw RuntimeError(9);
    }
    return profile.subspan(static_cast<std::size_t>(range.first), range.Count());
}

void AppendNumbers(std::string& line, std::span<const std::int32_t> numbers) {
    constexpr std::size_t longest = 12;  // a comma, a sign, ten digits
    const std::size_t start = line.size();
    line.resize(start + numbers.size() * longest);
    char* at = line.data() + start;
    char* const end = line.data() + line.size();
    for (const std::int32_t number : numbers) {
        *at++ = ',';
        at = std::to_chars(at, end, number).ptr;
    }
    line.resize(static_cast<std::size_t>(at - line.data()));
}

// ---- Lines ----

enum class Whole { Nearest, Cut };

// The heights of the samples; step is that of one height step.
void AppendHeights(std::string& line, SampleRange range, double step, double scale, Whole whole) {
    std::vector<std::int32_t> heights;
    for (int i = range.first; i <= range.last; ++i) {
        const double height = step / scale * i;
        heights.push_back(ToInt32(whole == Whole::Cut ? std::trunc(height) : height));
    }
    AppendNumbers(line, heights);
    line += LineEnd;
}

std::string FirstLines(Workstation& w) {
    return "Ceilometer Measurement data profile in the Excel suitable format (comma as column "
           "separator)\r\nThe unit of the data is [" +
           std::string(IsKn(w) ? "100000" : "10000") +
           "*srad*km]^-1\r\nFile created: " + DateAndTime(w.platform.clock.Now()) + "\r\n";
}

// kept: the words are those by which the sheets of old stations know the columns, and feet are cut
// to a whole for all instruments but the KN ones.
std::string ColumnHeads(const Workstation& w, SampleRange range) {
    constexpr double feetOfThirtyMetres = 98.4252, feet = 100, metres = 30;
    const double scale = w.intake.ProfileScale;
    std::string lines = ",,Status,Height1,Height2,Height3,Sig. Sum,Feets";
    if (IsKn(w)) {
        AppendHeights(lines, range, feetOfThirtyMetres, scale, Whole::Nearest);
    } else {
        AppendHeights(lines, range, feet, scale, Whole::Cut);
    }
    lines +=
        w.settings.Units == 1 ? ",,,Meters,Meters,Meters,,Meters" : ",,,Feets,Feets,Feets,,Meters";
    AppendHeights(lines, range, metres, scale, Whole::Cut);
    return lines;
}

// In messages with a sky condition block the signal sum stands behind it.
int SignalSumShift(std::int16_t id) {
    if (id < 3120 || id > 3129) return 0;
    return id == 3126 ? 42 : 37;
}

struct Field {
    int position;  // in the message, from 1
    int length;
};

std::string Row(const Workstation& w, std::span<const std::int32_t> samples, double timestamp,
                std::string_view message) {
    const ModelTable& model = w.model;
    const Field fields[] = {
        {model.PosStatus, 1},
        {model.PosCloud1, 5},
        {model.PosCloud2, 5},
        {model.PosCloud3, 5},
        {model.PosExport + SignalSumShift(w.intake.MessageId), 3},
    };
    std::string row = timestamp <= LastTimeWithoutDate ? "      " : Format(timestamp, "d-mmm");
    row += "," + Format(timestamp, "ttttt");
    for (const Field& field : fields) {
        // A place that the model does not have.
        if (field.position < 1) throw RuntimeError(5);
        row += "," + Mid(message, field.position, field.length);
    }
    row += ',';
    AppendNumbers(row, samples);
    row += LineEnd;
    return row;
}

// ---- The file ----

// What has to go in front of the next line: nothing, or the end of a line that a crash or a full
// disk cut. A file that cannot be looked at counts as cut.
std::string_view EndOfBreak(Files& files, const std::string& name) {
    bool isWhole = false;
    ResumeNext([&] {
        const auto file = files.OpenForReading(name);
        const std::int64_t size = file->Size();
        char last = '\0';
        file->Seek(std::max<std::int64_t>(size - 1, 0));
        file->Read(&last, 1);
        isWhole = size == 0 || last == '\n';
    });
    return isWhole ? "" : LineEnd;
}

void Print(Files& files, ExportState& to, std::string_view text) {
    if (to.brokenOff) to.file->Write(EndOfBreak(files, to.name));
    to.brokenOff = true;
    to.file->Write(text);
    to.brokenOff = false;
}

void StartFile(Workstation& w, const std::string& offlineFileName) {
    Files& files = w.platform.files;
    ExportState opened;
    opened.name = ExportName(offlineFileName);
    // Rows in a file that is being read, or will be, would end its records.
    const bool isRead = files.IsSame(opened.name, offlineFileName) || IsOfSet(w, opened.name);
    if (isRead) throw RuntimeError(AlreadyOpen);
    opened.file = files.OpenForAppending(opened.name);
    opened.brokenOff = true;  // what an earlier export left
    Print(files, opened, FirstLines(w));
    opened.ExportHeaderDue = -1;
    w.exporting = std::move(opened);
}

void Tell(Workstation& w, const char* text) { w.platform.dialogs.MessageBox(text, BoxButtons::Ok); }

}  // namespace

void mnuExcel_Click(Workstation& w) {
    MenuEntry& mark = w.frmMain.mnuExcel;
    if (mark.Checked) {
        mark.Checked = false;
        return CloseExportFile(w);
    }
    if (w.frmMain.mnuOpenPort.Checked) {
        return Tell(w, "Excel conversion available only in Off-line mode");
    }
    mark.Checked = true;
    if (w.frmMain.mnuFileOpen.Checked) BeginExport(w);
}

// kept: the mark also stays when the file cannot be opened, and the next off-line file tries again.
void BeginExport(Workstation& w) {
    w.exporting.ExportFileNo = OpenExportFile(w, w.offline.OfflineFileName);
}

void EndExport(Workstation& w) {
    if (w.exporting.ExportFileNo == 0) return;
    w.frmMain.mnuExcel.Checked = false;
    CloseExportFile(w);
}

// kept: the first dot of the whole name counts, also one of a folder; the exports of such a folder
// then all go on in one file beside it.
std::string ExportName(const std::string& offlineFileName) {
    return offlineFileName.substr(0, offlineFileName.find('.')) + ".txt";
}

std::int16_t OpenExportFile(Workstation& w, const std::string& offlineFileName) {
    try {
        StartFile(w, offlineFileName);
    } catch (const RuntimeError& error) {
        if (error.Number == TooManyFiles) {
            Tell(w, "Could not create File for Excel formatted data");
        } else {
            ReportError(w, error);
        }
        return 0;
    }
    return Channel;
}

void WriteExportRow(Workstation& w, std::span<const std::int32_t> profile, double timestamp,
                    std::int16_t fileNo, std::string_view message) {
    ExportState& to = w.exporting;
    if (fileNo == 0 || !to.file) return;
    // kept: a row that cannot be made or written is left out without a word, so that a long replay
    // runs through with nobody there to read boxes.
    ResumeNext([&] {
        const SampleRange range = ExportedSamples(w);
        if (to.ExportHeaderDue != 0) {
            Print(w.platform.files, to, ColumnHeads(w, range));
            to.ExportHeaderDue = 0;
        }
        Print(w.platform.files, to, Row(w, Samples(profile, range), timestamp, message));
    });
}

void CloseExportFile(Workstation& w) {
    // The state is that of no file before a box can be shown.
    ExportState closing = std::exchange(w.exporting, {});
    if (!closing.file) return;
    ReportAndGoOn(w, [&] {
        Print(w.platform.files, closing,
              "-File Closed: " + DateAndTime(w.platform.clock.Now()) + "\r\n");
    });
}

}  // namespace cumeron
