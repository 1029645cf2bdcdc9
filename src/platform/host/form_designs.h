// The designs of the dialogs, drawn with real layouts in shell/forms/*.ui. The form views set them
// up; a form without one is laid out by the program's own arithmetic.
#pragma once

#include <string>
#include <vector>

class QWidget;

namespace cumeron {

// Fills the client area with the widgets of the form's design; false when the form has none.
bool SetUpDesign(const std::string& form, QWidget* client);
// The forms that have a design, by name.
std::vector<std::string> DesignedForms();

}  // namespace cumeron
