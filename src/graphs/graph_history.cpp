#include "graphs/graph_history.h"

#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {
namespace {

template <class Records>
auto& RecordAt(Records& records, std::int16_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= records.size()) throw RuntimeError(9);
    return records[static_cast<std::size_t>(index)];
}

}  // namespace

void CreateHistory(Workstation& w, int screenWidthPixels) {
    const std::int16_t size = ToInt16(static_cast<double>(SlotsPerPixel) * screenWidthPixels);
    if (size < 0) throw RuntimeError(9);
    w.graphs.HistorySize = size;
    w.graphs.GraphHistory.assign(static_cast<std::size_t>(size) + 1, GraphRecord());
}

void DimensionProfiles(Workstation& w) {
    for (GraphRecord& record : w.graphs.GraphHistory)
        record.Profile.assign(static_cast<std::size_t>(w.model.ProfileLength) + 1, 0);
}

GraphRecord& NextHistoryRecord(Workstation& w) {
    GraphState& graphs = w.graphs;
    graphs.HistoryIndex = Add16(graphs.HistoryIndex, 1);
    if (graphs.HistoryIndex == graphs.HistorySize) {
        graphs.HistoryIndex = 1;
        graphs.HistoryWrapped = -1;
    }
    return RecordAt(graphs.GraphHistory, graphs.HistoryIndex);
}

ProfileSlotRecord& NextProfileSlot(Workstation& w) {
    GraphState& graphs = w.graphs;
    graphs.ProfileSlot = Add16(graphs.ProfileSlot, 1);
    if (static_cast<std::size_t>(graphs.ProfileSlot) == graphs.ProfileRing.size())
        graphs.ProfileSlot = 0;
    return RecordAt(graphs.ProfileRing, graphs.ProfileSlot);
}

}  // namespace cumeron
