// A small form with a control of each kind, and a workstation on the host's machine that shows it.
#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "platform/host/guard.h"
#include "platform/host/host_view.h"
#include "support.h"
#include "workstation.h"

namespace cumeron {

struct SampleForm : Form {
    MenuEntry mnuFile, mnuOpen, mnuMore, mnuDeep, mnuExit;
    Label lblText;
    Frame fraBox;
    Label lblInside;
    Button cmdGo;
    TextBox txtText;
    Image imgMark;
    Surface picGraph;
    Timer tmrTick;

    SampleForm();
    ControlList Controls() override;
    void Reset() override { *this = SampleForm(); }
};

// The workstation with its view; what would end the process ends in leftWith.
struct ViewBench {
    OwnFolders own;
    HostMachine machine{"1"};
    Workstation w{machine.platform};
    SampleForm form;
    HostView view{w, machine, ShownForms()};
    int leftWith = -1;

    ViewBench();
    ~ViewBench();
    ViewBench(const ViewBench&) = delete;
    ViewBench& operator=(const ViewBench&) = delete;

    void ShowSample();
    void ShowMain();
    std::vector<Form*> ShownForms();  // the program's and the sample
    QWidget* Client(const Form& shown) { return view.WindowOf(shown)->Client(); }
    // Shows the form modally; runs the steps in it one after the other, each when all is settled.
    // The last of them is to close it.
    void InModal(Form& modal, std::vector<std::function<void()>> steps);

    template <class Kind>
    Kind* FindIn(const Form& shown, const char* name) {
        return view.WindowOf(shown)->findChild<Kind*>(name);
    }

    template <class Kind>
    Kind* Find(const char* name) {
        return view.WindowOf(form)->findChild<Kind*>(name);
    }
};

// Presses and releases the left button in the middle of the widget.
void ClickOn(QWidget* widget);
void TypeInto(QWidget* widget, int key, const QString& text);
// What assistive software calls it.
QString SpokenName(QWidget* widget);

}  // namespace cumeron
