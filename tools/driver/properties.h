// The properties of controls, forms and the serial line by their names: one table each.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/printer.h"
#include "platform/serial_line.h"
#include "platform/surface.h"
#include "variables.h"

namespace cumeron {

// Nothing when there is no such property.
std::optional<Value> PropertyOf(const AnyControl& control, const std::string& property);
std::optional<Value> PropertyOf(const Form& form, const std::string& property);
std::optional<Value> PropertyOf(SerialLine& line, const std::string& property);

std::optional<Value> PropertyOf(Printer& printer, const std::string& property);
// One of those that the print setup sets, by its name, and all their names.
std::optional<PrinterProperty> PrinterPropertyOf(const std::string& name);
std::string PrinterPropertyNames();

// What a control alone stands for; "" for a control that has no such property.
std::string DefaultProperty(const AnyControl& control);
// "Label", "MenuEntry" and so on.
std::string KindOf(const AnyControl& control);

std::vector<std::string> PropertiesOf(const AnyControl& control);
std::vector<std::string> PropertiesOf(const Form& form);
std::vector<std::string> PropertiesOf(SerialLine& line);
std::vector<std::string> PropertiesOf(Printer& printer);

// Null for a timer, which is nothing to see.
Control* SeenControl(const AnyControl& control);

}  // namespace cumeron
