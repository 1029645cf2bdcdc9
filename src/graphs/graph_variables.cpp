// The names of the graphs' variables, the two rings with their records.
#include "graphs/ranges.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "variables.h"
#include "workstation.h"

namespace cumeron {
namespace {

using Indices = std::vector<long>;

template <class Elements>
auto& ElementAt(Elements& elements, long index) {
    CheckIndex(index, elements.size());
    return elements[static_cast<std::size_t>(index)];
}

// A place that is found by indices, such as a field of a record.
template <class Place>
void AddIndexed(VariableList& list, std::string name, int indexCount, Place place) {
    list.variables.push_back(
        {std::move(name), indexCount,
         [place](Workstation& w, const Indices& indices) { return LoadValue(place(w, indices)); },
         [place](Workstation& w, const Indices& indices, const Value& value) {
             StoreValue(place(w, indices), value);
         }});
}

GraphRecord& RecordAt(Workstation& w, const Indices& indices) {
    return ElementAt(w.graphs.GraphHistory, indices[0]);
}

ProfileSlotRecord& SlotAt(Workstation& w, long index) {
    return ElementAt(w.graphs.ProfileRing, index);
}

void ListHistory(VariableList& list) {
    list.Add(
        "HistorySize", [](Workstation & w) -> auto& { return w.graphs.HistorySize; });
    list.Add(
        "HistoryIndex", [](Workstation & w) -> auto& { return w.graphs.HistoryIndex; });
    list.Add(
        "HistoryWrapped", [](Workstation & w) -> auto& { return w.graphs.HistoryWrapped; });
    AddIndexed(
        list, "GraphHistory.Profile", 2, [](Workstation & w, const Indices& i) -> auto& {
            return ElementAt(RecordAt(w, i).Profile, i[1]);
        });
    AddIndexed(
        list, "GraphHistory.Valid", 1,
        [](Workstation & w, const Indices& i) -> auto& { return RecordAt(w, i).Valid; });
    list.variables.push_back(
        {"GraphHistory.Time", 1,
         [](Workstation& w, const Indices& i) -> Value { return DateValue{RecordAt(w, i).Time}; },
         [](Workstation& w, const Indices& i, const Value& value) {
             RecordAt(w, i).Time = AsDouble(value);
         }});
    AddIndexed(
        list, "GraphHistory.CloudValue", 2, [](Workstation & w, const Indices& i) -> auto& {
            return ElementAt(RecordAt(w, i).CloudValue, i[1]);
        });
    AddIndexed(
        list, "GraphHistory.CloudText", 1,
        [](Workstation & w, const Indices& i) -> auto& { return RecordAt(w, i).CloudText; });
    AddIndexed(
        list, "GraphHistory.MessageId", 1,
        [](Workstation & w, const Indices& i) -> auto& { return RecordAt(w, i).MessageId; });
    AddIndexed(
        list, "GraphHistory.Scale", 1,
        [](Workstation & w, const Indices& i) -> auto& { return RecordAt(w, i).Scale; });
}

void ListProfiles(VariableList& list) {
    list.Add(
        "ProfileSlot", [](Workstation & w) -> auto& { return w.graphs.ProfileSlot; });
    AddIndexed(
        list, "ProfileRing.Valid", 1,
        [](Workstation & w, const Indices& i) -> auto& { return SlotAt(w, i[0]).Valid; });
    AddIndexed(
        list, "ProfileRing.Profile", 2, [](Workstation & w, const Indices& i) -> auto& {
            return ElementAt(SlotAt(w, i[0]).Profile, i[1]);
        });
    AddIndexed(
        list, "BackscatterProfile", 1, [](Workstation & w, const Indices& i) -> auto& {
            return ElementAt(SlotAt(w, w.graphs.ProfileSlot).Profile, i[0]);
        });
}

void ListPictureState(VariableList& list) {
    list.Add(
        "HistoryRedrawCount", [](Workstation & w) -> auto& { return w.graphs.HistoryRedrawCount; });
    list.Add(
        "CurrentColumn", [](Workstation & w) -> auto& { return w.graphs.CurrentColumn; });
    list.Add(
        "MarkerColumn", [](Workstation & w) -> auto& { return w.graphs.MarkerColumn; });
    list.Add(
        "CompressPhase", [](Workstation & w) -> auto& { return w.graphs.CompressPhase; });
    list.Add(
        "GridOnScreen", [](Workstation & w) -> auto& { return w.graphs.GridOnScreen; });
    list.Add(
        "CloudYLow", [](Workstation & w) -> auto& { return w.graphs.CloudYLow; });
    list.Add(
        "CloudYHigh", [](Workstation & w) -> auto& { return w.graphs.CloudYHigh; });
    list.Add(
        "ProfileYLow", [](Workstation & w) -> auto& { return w.graphs.ProfileYLow; });
    list.Add(
        "ProfileYHigh", [](Workstation & w) -> auto& { return w.graphs.ProfileYHigh; });
    list.Add(
        "ProfileXLow", [](Workstation & w) -> auto& { return w.graphs.ProfileXLow; });
    list.Add(
        "ProfileXHigh", [](Workstation & w) -> auto& { return w.graphs.ProfileXHigh; });
    list.Add(
        "AverageScale", [](Workstation & w) -> auto& { return w.graphs.AverageScale; });
    list.AddDate(
        "LastGraphTime", [](Workstation & w) -> auto& { return w.graphs.LastGraphTime; });
    list.AddArray(
        "CloudHitHeights", [](Workstation & w) -> auto& { return w.graphs.CloudHitHeights; });
}

}  // namespace

void ListGraphVariables(VariableList& list) {
    ListHistory(list);
    ListProfiles(list);
    list.AddDate(
        "MessageTime", [](Workstation & w) -> auto& { return w.graphs.MessageTime; });
    list.Add(
        "TimeLabelsDirty", [](Workstation & w) -> auto& { return w.graphs.TimeLabelsDirty; });
    list.Add(
        "HeightLabelsDirty", [](Workstation & w) -> auto& { return w.graphs.HeightLabelsDirty; });
    list.Add(
        "GraphsReady", [](Workstation & w) -> auto& { return w.graphs.GraphsReady; });
    list.Add(
        "RedrawAbort", [](Workstation & w) -> auto& { return w.graphs.RedrawAbort; });
    ListPictureState(list);
    list.functions.push_back(
        {"StepHeight", 3, [](Workstation&, const std::vector<std::string>& arguments) -> Value {
             return std::int64_t{StepHeight(ToDouble(arguments[0]), ToInt16(arguments[1]) != 0,
                                            ToInt16(arguments[2]))};
         }});
    list.AddArray(
        "RangeTable", [](Workstation & w) -> auto& { return w.graphs.RangeTable; });
    list.Add(
        "PreviousCloudmode", [](Workstation & w) -> auto& { return w.graphs.PreviousCloudmode; });
    list.Add(
        "UnitLabel", [](Workstation & w) -> auto& { return w.graphs.UnitLabel; });
}

}  // namespace cumeron
