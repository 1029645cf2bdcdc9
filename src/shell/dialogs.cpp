#include "shell/dialogs.h"

#include "workstation.h"

namespace cumeron {

void ShowDialog(Workstation& w, Form& form) {
    if (w.frmMain.mnuSkyCond.Checked) {
        w.frmSkyCond.TopMost = false;  // on top it would cover the dialog
        ++w.frmSkyCond.SentToBack;
    }
    ShowModal(w, form);
    if (ModalForm(w) == nullptr) SetTop(w);  // a dialog behind this one is not covered either
}

}  // namespace cumeron
