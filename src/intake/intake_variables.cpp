// The names of the intake's variables and of the model's constants.
#include "variables.h"
#include "workstation.h"

namespace cumeron {
namespace {

void ListReception(VariableList& list) {
    list.Add(
        "ReceiveBuffer", [](Workstation & w) -> auto& { return w.intake.ReceiveBuffer; });
    list.Add(
        "IntakeBusy", [](Workstation & w) -> auto& { return w.intake.IntakeBusy; });
    list.Add(
        "EnquiryBusy", [](Workstation & w) -> auto& { return w.intake.EnquiryBusy; });
    list.Add(
        "ReplayBusy", [](Workstation & w) -> auto& { return w.intake.ReplayBusy; });
    list.Add(
        "RedialCount", [](Workstation & w) -> auto& { return w.intake.RedialCount; });
    list.Add(
        "FrameErrorCount", [](Workstation & w) -> auto& { return w.intake.FrameErrorCount; });
    list.AddDate(
        "MessageClockTime", [](Workstation & w) -> auto& { return w.intake.MessageClockTime; });
}

double& ArrivalAt(Workstation& w, long index) {
    CheckIndex(index, w.intake.IntervalTimes.size());
    return w.intake.IntervalTimes[static_cast<std::size_t>(index)];
}

void ListInterval(VariableList& list) {
    list.Add(
        "IntervalSeekState", [](Workstation & w) -> auto& { return w.intake.IntervalSeekState; });
    list.Add(
        "IntervalCandidate", [](Workstation & w) -> auto& { return w.intake.IntervalCandidate; });
    list.variables.push_back(
        {"IntervalTimes", 1,
         [](Workstation& w, const std::vector<long>& indices) -> Value {
             return DateValue{ArrivalAt(w, indices[0])};
         },
         [](Workstation& w, const std::vector<long>& indices, const Value& value) {
             ArrivalAt(w, indices[0]) = AsDouble(value);
         }});
}

void ListMessage(VariableList& list) {
    list.Add(
        "PreviousStatus", [](Workstation & w) -> auto& { return w.intake.PreviousStatus; });
    list.Add(
        "FrameText", [](Workstation & w) -> auto& { return w.intake.FrameText; });
    list.Add(
        "Payload", [](Workstation & w) -> auto& { return w.intake.Payload; });
    list.Add(
        "MessageId", [](Workstation & w) -> auto& { return w.intake.MessageId; });
    list.Add(
        "ProfileScale", [](Workstation & w) -> auto& { return w.intake.ProfileScale; });
}

void ListModel(VariableList& list) {
    list.Add(
        "FrameStart", [](Workstation & w) -> auto& { return w.model.FrameStart; });
    list.Add(
        "FrameEnd", [](Workstation & w) -> auto& { return w.model.FrameEnd; });
    list.Add(
        "ProfileLength", [](Workstation & w) -> auto& { return w.model.ProfileLength; });
    list.Add(
        "AngleOffset", [](Workstation & w) -> auto& { return w.model.AngleOffset; });
    list.Add(
        "PosCloud1", [](Workstation & w) -> auto& { return w.model.PosCloud1; });
    list.Add(
        "PosCloud2", [](Workstation & w) -> auto& { return w.model.PosCloud2; });
    list.Add(
        "PosCloud3", [](Workstation & w) -> auto& { return w.model.PosCloud3; });
    list.Add(
        "PosCloud1Alt", [](Workstation & w) -> auto& { return w.model.PosCloud1Alt; });
    list.Add(
        "PosCloud2Alt", [](Workstation & w) -> auto& { return w.model.PosCloud2Alt; });
    list.Add(
        "PosStatus", [](Workstation & w) -> auto& { return w.model.PosStatus; });
    list.Add(
        "PosAngle", [](Workstation & w) -> auto& { return w.model.PosAngle; });
    list.Add(
        "PosDetection", [](Workstation & w) -> auto& { return w.model.PosDetection; });
    list.Add(
        "PosAlarm", [](Workstation & w) -> auto& { return w.model.PosAlarm; });
    list.Add(
        "PosExport", [](Workstation & w) -> auto& { return w.model.PosExport; });
}

}  // namespace

void ListIntakeVariables(VariableList& list) {
    ListReception(list);
    ListInterval(list);
    ListMessage(list);
    ListModel(list);
}

}  // namespace cumeron
