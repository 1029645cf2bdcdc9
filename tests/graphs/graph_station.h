// A workstation with graphs of known sizes and the settings of a first start, without the start of
// the program: for the tests of the graphs.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "graphs/cloud_columns.h"
#include "graphs/ranges.h"
#include "intake/models.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "shell/settings.h"
#include "workstation.h"

namespace cumeron {

// Colours as the picture has them.
namespace ink {
inline constexpr int White = 0xFFFFFF, Black = 0, Red = 0x0000FF, Green = 0x008000;
// Of the five classes, at a first start.
inline constexpr int Class[] = {16776960, 8421376, 16711680, 8388608, 0};
}  // namespace ink

inline int ErrorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

struct GraphStation {
    ScriptedMachine machine;
    Workstation w{machine.platform};
    const double noon = DateSerial(2026, 5, 1) + 0.5;

    explicit GraphStation(int width = 100, int height = 60, int model = 20) {
        bool ofGraphs = false;
        for (const SettingRow& row : SettingTable()) {
            ofGraphs =
                (ofGraphs || row.key == "Backscatter_X_Low_Value") && row.key != "CEILOMETER";
            if (ofGraphs) StoreSetting(w, row, std::string(row.fallback));
        }
        w.settings.CEILOMETER = static_cast<std::int16_t>(model);
        w.settings.Message_Interval = 15;
        LoadModel(w, LoadedBy::Start);
        std::int32_t* table = w.graphs.RangeTable.data();
        table[1] = 128, table[2] = 255, table[3] = 514, table[4] = 751;
        CreateHistory(w, 20);
        DimensionProfiles(w);
        Size(w.frmMain.picCombination, width, height);
        Size(w.frmMain.picLines, width, height);
        Size(w.frmMain.picXLabels, width, 34);
        Size(w.frmMain.picXLabelsBack, width, 34);
        Size(w.frmMain.picYLabels, 44, height);
        Size(w.frmMain.picYLabelsBack, 44, height);
        ApplyBackscatterRange(w);
        ApplyCloudRange(w);
        w.graphs.MessageTime = noon;
        w.intake.MessageId = 15;
        w.intake.ProfileScale = 1;
    }

    static void Size(Surface& surface, int width, int height) {
        surface.BackColor = ink::White;
        surface.Width = width;
        surface.Height = height;
        surface.Cls();
    }
    Surface& Picture() { return w.frmMain.picCombination; }
    GraphState& Graphs() { return w.graphs; }

    // The profile that has this value at every gate.
    std::vector<std::int32_t> Level(std::int32_t value) const {
        return std::vector<std::int32_t>(static_cast<std::size_t>(w.model.ProfileLength) + 1,
                                         value);
    }
    // A message that many seconds after noon.
    void Message(double seconds, std::int32_t value = 1000, bool valid = true) {
        w.graphs.MessageTime = noon + seconds / 86400;
        AddGraphColumn(w, Level(value), valid);
    }
    void MessageBack(double seconds, std::int32_t value = 1000) {
        w.graphs.MessageTime = noon + seconds / 86400;
        AddGraphColumnBack(w, Level(value));
    }
    // The same into the ring, as the intake keeps it.
    void Record(double seconds, std::int32_t value = 1000, bool valid = true) {
        GraphRecord& record = NextHistoryRecord(w);
        record.Profile = Level(value);
        record.Valid = valid ? -1 : 0;
        record.Time = noon + seconds / 86400;
        record.CloudText = "Cloud Height 1";
        record.MessageId = 15;
        record.Scale = 1;
    }
};

inline std::vector<std::uint32_t> PixelsOf(const Surface& surface) {
    const std::size_t count = static_cast<std::size_t>(surface.PixelWidth()) *
                              static_cast<std::size_t>(surface.PixelHeight());
    return {surface.Pixels(), surface.Pixels() + count};
}

inline bool IsAll(const Surface& surface, int colour) {
    for (const std::uint32_t pixel : PixelsOf(surface)) {
        if (pixel != PixelColour(colour)) return false;
    }
    return true;
}

// One letter to a colour: '.' white, 'R' light red, 'G' green, 'a' to 'd' the classes, '#' black,
// '?' another.
inline char LetterOf(int colour) {
    switch (colour) {
        case ink::White:
            return '.';
        case ink::Red:
            return 'R';
        case ink::Green:
            return 'G';
        case ink::Black:
            return '#';
        default:
            break;
    }
    for (int i = 0; i < 4; ++i) {
        if (colour == ink::Class[i]) return static_cast<char>('a' + i);
    }
    return '?';
}

inline std::string RowOf(const Surface& surface, int y) {
    std::string row;
    for (int x = 0; x < surface.PixelWidth(); ++x) row += LetterOf(surface.Pixel(x, y));
    return row;
}

// From the top.
inline std::string ColumnOf(const Surface& surface, int x) {
    std::string column;
    for (int y = 0; y < surface.PixelHeight(); ++y) column += LetterOf(surface.Pixel(x, y));
    return column;
}

// A row in which gap marks, position mark and columns all show, and one that columns alone reach.
inline std::string FootOf(const Surface& graph) { return RowOf(graph, graph.PixelHeight() - 3); }
inline std::string MiddleOf(const Surface& graph) { return RowOf(graph, graph.PixelHeight() / 2); }

inline std::vector<std::string> TextsOf(const Surface& surface) {
    std::vector<std::string> texts;
    for (const PrintedText& printed : surface.Printed()) texts.push_back(printed.text);
    return texts;
}

// "text@row" of each label of a height axis: the row of its tick, 8 pixels below its upper edge.
inline std::string HeightLabelsOf(const Surface& strip) {
    std::string labels;
    for (const PrintedText& printed : strip.Printed()) {
        labels += printed.text + "@" + std::to_string(printed.y + 8) + " ";
    }
    return labels;
}

}  // namespace cumeron
