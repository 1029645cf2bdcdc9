// What the graphs remember: the ring of the last messages, whole, from which the picture is
// rebuilt, the ring of profiles for the averaged plot, and the state of picture and axes. The
// intake writes both rings.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace cumeron {

struct Workstation;

// One received message.
struct GraphRecord {
    std::vector<std::int32_t> Profile;  // 0 to ProfileLength, the instrument's counts
    std::int16_t Valid = 0;             // -1 when the MessageId is not -1
    double Time = 0;                    // date-time of the arrival
    std::array<std::string, 4> CloudValue;
    std::string CloudText;
    std::int16_t MessageId = 0;
    double Scale = 0;  // ProfileScale of this message
};

struct ProfileSlotRecord {
    std::array<std::int32_t, 2049> Profile{};
    std::int16_t Valid = 0;
};

// What the grid on the picture was drawn from, so that exactly that can be taken off again.
struct GridSnapshotRecord {
    std::int16_t CloudYLow = 0, CloudYHigh = 0;
    std::int16_t CurrentColumn = 0;
    double MessageTime = 0;
    std::int16_t Units = 0;
};

// The gates that fall on one row of the picture, counted from the lowest that is drawn; none when
// the highest is below the lowest.
struct RowGates {
    int lowest = 0, highest = -1;
};

// How the gates of a profile fall on the rows of the picture and its values on colours; kept from
// message to message, since both change with the settings only. Made by DrawIntensityColumn.
struct ColumnTables {
    std::vector<double> rowsKey, coloursKey;  // what the tables were made from
    std::vector<RowGates> rows;               // from the top
    std::vector<std::uint32_t> colours;       // of the profile values from firstValue on; 0: none
    std::int32_t firstValue = 0;
};

struct GraphState {
    std::vector<GraphRecord> GraphHistory;  // 0 to HistorySize; in use are 1 to HistorySize - 1
    std::int16_t HistorySize = 0;
    std::int16_t HistoryIndex = 0;    // slot written last, 0 when empty
    std::int16_t HistoryWrapped = 0;  // -1: the ring has wrapped at least once
    std::vector<ProfileSlotRecord> ProfileRing = std::vector<ProfileSlotRecord>(30);
    std::int16_t ProfileSlot = 0;  // slot of the current message
    double MessageTime = 0;        // date-time of the current message
    std::int16_t TimeLabelsDirty = -1;
    std::int16_t HeightLabelsDirty = -1;
    std::int16_t GraphsReady = 0;
    std::int16_t HistoryRedrawCount = 0;  // newest records that a redraw replays
    std::int16_t RedrawAbort = 0;         // 1: a layout change ends a redraw
    std::int16_t CurrentColumn = 0;       // pixel column of the next message
    std::int16_t MarkerColumn = -1;       // column of the position mark, -1 for none
    std::int16_t CompressPhase = 0;       // messages that have gone into the current column
    double LastGraphTime = 0;             // of the message painted last, 0 for none
    std::int16_t GridOnScreen = 0;        // -1: the grid stands in the picture
    GridSnapshotRecord GridSnapshot;
    std::int16_t CloudYLow = 0, CloudYHigh = 0;      // height steps
    std::int16_t ProfileYLow = 0, ProfileYHigh = 0;  // height steps
    std::int16_t ProfileXLow = 0, ProfileXHigh = 0;  // plot units
    std::array<std::int16_t, 4> CloudHitHeights{};   // 1 to 3: tens of feet
    double AverageScale = 0;                         // ProfileScale at the last average
    ColumnTables columnTables;
    std::array<std::int32_t, 5> RangeTable{};  // height steps of 100 ft or 30 m
    std::int16_t PreviousCloudmode = 0;
    std::string UnitLabel;                             // "[m]" or "[ft]"
    double resizeSeenWidth = 0, resizeSeenHeight = 0;  // size at the last tick of ResizeTimer
};

// So that the widest graph can be refilled even when three messages share a column.
inline constexpr int SlotsPerPixel = 3;
// The widest screen whose history 16 bits can count, in pixels.
inline constexpr int WidestHistory = 32767 / SlotsPerPixel;

// HistorySize from the width of the screen in pixels: three slots to the pixel. Raises 6 when
// that does not fit 16 bits. Makes the ring.
void CreateHistory(Workstation& w, int screenWidthPixels);
// Dimensions every profile of the ring 0 to ProfileLength, zeroed.
void DimensionProfiles(Workstation& w);
// Advances HistoryIndex, going round from HistorySize to 1, and gives the record to write.
GraphRecord& NextHistoryRecord(Workstation& w);
// Advances ProfileSlot, going round from 30 to 0, and gives the slot.
ProfileSlotRecord& NextProfileSlot(Workstation& w);

}  // namespace cumeron
