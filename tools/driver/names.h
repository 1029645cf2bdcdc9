// What a name in a script stands for: a control or its property, the serial line, a variable of
// the program, a pure function. All throw CommandError for a name that is not known, with names
// that are.
#pragma once

#include <optional>
#include <string>

#include "session.h"

namespace cumeron {

// The value of NAME; a control alone stands for its default property.
Value ValueOf(Session& session, const std::string& name);
// Stores into a variable; throws CommandError when it cannot be set.
void StoreVariable(Session& session, const std::string& name, const std::string& text);

struct FoundControl {
    Form* form;
    NamedControl named;
    std::string property;  // "" when the name ends with the control
};
// Nothing when name is no control; throws when only its form is known.
std::optional<FoundControl> SearchControl(Session& session, const std::string& name);
FoundControl FindControl(Session& session, const std::string& name);
Form& FindForm(Session& session, const std::string& name);
Surface& FindSurface(Session& session, const std::string& name);

// The name by which a script reaches the control within its form: "Toolbar1.Log", "CloudValue(0)".
std::string NameOf(const NamedControl& named);

// A file as commands name it: a bare name of a settings file lies in the settings folder.
std::string ProgramFileName(const Session& session, const std::string& name);

}  // namespace cumeron
