// What the bindings of a form view's controls share. Part of the form view.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <utility>

#include "platform/controls.h"

namespace cumeron {

// The object name of a control's widget: "cboPort", "optCType(0)".
QString WidgetName(const NamedControl& named);
// What assistive software calls a control that shows no caption of its own.
QString SpokenName(const NamedControl& named);

// A step that calls show(record) when the fields that pick(record) gives have changed.
template <class Record, class Pick, class Show>
std::function<void()> OnChange(Record& record, Pick pick, Show show) {
    using Fields = decltype(pick(record));
    auto shown = std::make_shared<std::unique_ptr<Fields>>();
    return [&record, pick, show, shown] {
        Fields now = pick(record);
        if (*shown && **shown == now) return;
        *shown = std::make_unique<Fields>(std::move(now));
        show(record);
    };
}

}  // namespace cumeron
