// The ring of the last messages, whole, and the ring of profiles for the averaged plot. The
// intake writes both; the graphs are rebuilt from them.
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
    std::int16_t RedrawAbort = 0;
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
