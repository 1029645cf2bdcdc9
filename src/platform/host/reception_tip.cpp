#include "platform/host/reception_tip.h"

#include <algorithm>

#include "platform/runtime/dates.h"
#include "workstation.h"

namespace cumeron {
namespace {

QString AgeText(std::int32_t seconds) {
    if (seconds < 60) return QString("%1 s").arg(seconds);
    const std::int32_t minutes = seconds / 60;
    if (minutes < 60) return QString("%1 min %2 s").arg(minutes).arg(seconds % 60);
    return QString("%1 h %2 min").arg(minutes / 60).arg(minutes % 60);
}

// MessageTime also stands for the opening of the port, so the history tells first.
double TimeOfLastMessage(const GraphState& graphs) {
    const auto last = static_cast<std::size_t>(graphs.HistoryIndex);
    return last > 0 ? graphs.GraphHistory[last].Time : graphs.MessageTime;
}

}  // namespace

QString ReceptionTip(const Workstation& w) {
    const double time = TimeOfLastMessage(w.graphs);
    const std::int32_t age = DateDiffSeconds(time, w.platform.clock.Now());
    const QString last = w.intake.FrameText.empty()
                             ? QString("No good message yet")
                             : QString("Last good message %1 ago").arg(AgeText(std::max(0, age)));
    return last + QString("\nRejected since the start: %1").arg(w.intake.FrameErrorCount);
}

}  // namespace cumeron
