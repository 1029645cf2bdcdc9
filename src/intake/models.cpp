#include "intake/models.h"

#include <algorithm>
#include <array>
#include <limits>

#include "workstation.h"

namespace cumeron {
namespace {

// A constant that the load does not touch: it stays as the model before left it.
constexpr std::int16_t Keep = std::numeric_limits<std::int16_t>::min();

// kept: RV10X and TQ60 are set up with other places at the start than in the dialog, so that a
// workstation goes on reading the same columns of its old exports after a change of model.
struct Place {
    std::int16_t start;
    std::int16_t dialog;
    constexpr Place(int both) : Place(both, both) {}
    constexpr Place(int atStart, int inDialog)
        : start(static_cast<std::int16_t>(atStart)), dialog(static_cast<std::int16_t>(inDialog)) {}
};

// What all models of a wire family share.
struct FamilyRow {
    Family family;
    std::string_view frameStart, frameEnd;
    std::string_view header, noHeader;
    std::int16_t statusDigits;
    std::int16_t cloud1, cloud2, cloud3, cloud1Alt, cloud2Alt, status;
    Place angle, detection, alarm, exportField;
};

// clang-format off
constexpr FamilyRow FamilyTable[] = {
    // family         start   end         header  without it      digits  cloud fields        status  angle       detection alarm  export
    {Family::RV,     "\x01", "\x03\r\n", "RV",   "No RV Header",   8,    15, 21, 27, 15, 21,   33,    67,         12,       13,    82},
    {Family::RV10X,  "\x02", "\x03\r\n", "\x02", "No <STX>",      10,     8, 20, 14,  8, 20,   32,    {67, Keep},  4,        5,    Keep},
    {Family::KN,     "\x01", "\x04\r\n", "KN",   "No KN Header",  12,    16, 22, 28, 16, 22,   34,    74,         13,       14,    92},
    // kept: a missing header is told in the words of the RV family.
    {Family::TQ60,   "\x02", "\r\n\x04", "X",    "No RV Header",   8,    28, 34, 40, 61, 67,   84,    {67, 74},   {12, 13}, 91,    {82, 92}},
};
// clang-format on

struct ModelRow {
    std::int16_t code;
    std::string_view name;
    Family family;
    std::string_view interval;  // seconds
    std::int16_t profileLength;
    std::int32_t rangeSteps;
    std::int16_t angleOffset;  // degrees
};

constexpr ModelRow Models[] = {
    {70, "RV70X", Family::RV, "60", 751, 751, 90},
    {20, "RV20X", Family::RV, "15", 255, 255, 0},
    {10, "RV10X", Family::RV10X, "12", 128, 128, Keep},
    {30, "KN30", Family::KN, "15", 1500, 257, 0},
    {50, "KN50", Family::KN, "15", 1540, 514, 0},
    {60, "TQ60", Family::TQ60, "15", 2048, 2048 / 4, 0},
};

constexpr auto Codes = [] {
    std::array<std::int16_t, std::size(Models)> codes{};
    std::transform(std::begin(Models), std::end(Models), codes.begin(),
                   [](const ModelRow& row) { return row.code; });
    return codes;
}();

const ModelRow* RowOf(int code) {
    const auto* row = std::find_if(std::begin(Models), std::end(Models),
                                   [&](const ModelRow& m) { return m.code == code; });
    return row == std::end(Models) ? nullptr : row;
}

const FamilyRow& RowOf(Family family) {
    return *std::find_if(std::begin(FamilyTable), std::end(FamilyTable),
                         [&](const FamilyRow& f) { return f.family == family; });
}

void SetUnlessKept(std::int16_t& constant, Place place, LoadedBy who) {
    const std::int16_t value = who == LoadedBy::Start ? place.start : place.dialog;
    if (value != Keep) constant = value;
}

void LoadFamily(ModelTable& model, const FamilyRow& row, LoadedBy who) {
    model.family = row.family;
    model.FrameStart = row.frameStart;
    model.FrameEnd = row.frameEnd;
    model.header = row.header;
    model.noHeader = row.noHeader;
    model.statusDigits = row.statusDigits;
    model.PosCloud1 = row.cloud1;
    model.PosCloud2 = row.cloud2;
    model.PosCloud3 = row.cloud3;
    model.PosCloud1Alt = row.cloud1Alt;
    model.PosCloud2Alt = row.cloud2Alt;
    model.PosStatus = row.status;
    SetUnlessKept(model.PosAngle, row.angle, who);
    SetUnlessKept(model.PosDetection, row.detection, who);
    SetUnlessKept(model.PosAlarm, row.alarm, who);
    SetUnlessKept(model.PosExport, row.exportField, who);
}

}  // namespace

bool IsModel(int code) { return RowOf(code) != nullptr; }

std::string_view ModelName(int code) {
    const ModelRow* row = RowOf(code);
    return row ? row->name : std::string_view();
}

std::string_view DefaultMessageInterval(int code) {
    const ModelRow* row = RowOf(code);
    return row ? row->interval : std::string_view();
}

std::span<const std::int16_t> ModelCodes() { return Codes; }

void LoadModel(Workstation& w, LoadedBy who) {
    const ModelRow* row = RowOf(w.settings.CEILOMETER);
    if (!row) return;
    ModelTable& model = w.model;
    model.code = row->code;
    model.name = row->name;
    model.ProfileLength = row->profileLength;
    model.rangeSteps = row->rangeSteps;
    SetUnlessKept(model.AngleOffset, row->angleOffset, who);
    LoadFamily(model, RowOf(row->family), who);
    w.graphs.RangeTable[0] = model.rangeSteps;
    w.frmMain.lblCT.Caption = model.name;
    w.frmSkyCond.lblCT_2.Caption = model.name;
}

}  // namespace cumeron
