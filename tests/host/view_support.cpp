#include "view_support.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>

#include "shell/dispatch.h"

namespace cumeron {
namespace {

void Place(Control& control, double left, double top, double width, double height) {
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

}  // namespace

SampleForm::SampleForm() {
    Name = "frmSample";
    Caption = "Sample";
    Left = 40 * TwipsPerPixel;
    Top = 30 * TwipsPerPixel;
    Width = 400 * TwipsPerPixel;
    Height = 300 * TwipsPerPixel;
    mnuFile.Caption = "&File";
    mnuOpen.Caption = "&Open...";
    mnuMore.Caption = "&More";
    mnuDeep.Caption = "&Deep";
    mnuExit.Caption = "E&xit";
    mnuExit.SeparatorBefore = true;
    lblText.Caption = "Text";
    fraBox.Caption = "Box";
    lblInside.Caption = "Inside";
    cmdGo.Caption = "&Go";
    Place(lblText, 10, 10, 200, 40);
    Place(fraBox, 10, 60, 200, 60);
    Place(lblInside, 20, 25, 100, 20);
    Place(cmdGo, 10, 130, 80, 30);
    Place(txtText, 10, 170, 200, 60);
    Place(imgMark, 220, 10, 24, 24);
    Place(picGraph, 220, 60, 50, 40);
    txtText.MultiLine = true;
    imgMark.Picture = "alarm";
}

ControlList SampleForm::Controls() {
    return {{"mnuFile", -1, "", &mnuFile},
            {"mnuOpen", -1, "mnuFile", &mnuOpen},
            {"mnuMore", -1, "mnuFile", &mnuMore},
            {"mnuDeep", -1, "mnuMore", &mnuDeep},
            {"mnuExit", -1, "mnuFile", &mnuExit},
            {"lblText", -1, "", &lblText},
            {"fraBox", -1, "", &fraBox},
            {"lblInside", 1, "fraBox", &lblInside},
            {"cmdGo", -1, "", &cmdGo},
            {"txtText", -1, "", &txtText},
            {"imgMark", -1, "", &imgMark},
            {"picGraph", -1, "", &picGraph},
            {"tmrTick", -1, "", &tmrTick}};
}

ViewBench::ViewBench() {
    SetLeave([this](int status) { leftWith = status; });
}

ViewBench::~ViewBench() { SetLeave(nullptr); }

std::vector<Form*> ViewBench::ShownForms() {
    std::vector<Form*> shown = w.Forms();
    shown.push_back(&form);
    return shown;
}

void ViewBench::InModal(Form& modal, std::vector<std::function<void()>> steps) {
    QTimer pulse;
    std::size_t next = 0;
    QObject::connect(&pulse, &QTimer::timeout, &view, [&] {
        if (next == steps.size()) return;
        const auto step = steps[next++];
        Settle();
        step();
    });
    pulse.start(0);
    ShowModal(w, modal);
    EXPECT_EQ(next, steps.size());
}

void ViewBench::ShowSample() {
    ShowForm(w, form);
    view.Sync();
    Settle();
}

void ViewBench::ShowMain() {
    w.frmMain.Load = nullptr;
    w.frmMain.tmrClock.SetEnabled(false);
    w.frmMain.Width = 800 * TwipsPerPixel;
    w.frmMain.Height = 540 * TwipsPerPixel;
    ShowForm(w, w.frmMain);
    view.Sync();
    Settle();
}

void ClickOn(QWidget* widget) {
    const QPointF middle = QRectF(widget->rect()).center();
    const QPointF onScreen = widget->mapToGlobal(middle);
    QMouseEvent press(QEvent::MouseButtonPress, middle, onScreen, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, middle, onScreen, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &release);
}

QString SpokenName(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

void TypeInto(QWidget* widget, int key, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(widget, &press);
}

}  // namespace cumeron
