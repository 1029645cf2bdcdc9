#include "platform/host/gestures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QRubberBand>
#include <QTest>

#include "view_support.h"

namespace cumeron {
namespace {

// A bar between two fields, the right one with a scale of its own.
struct DragForm : Form {
    Surface picLeft, picRight, picBar;
    Frame fraBox;

    DragForm() {
        Name = "frmDrag";
        Width = 400 * TwipsPerPixel;
        Height = 200 * TwipsPerPixel;
        Put(picLeft, 50, 150);
        Put(picRight, 200, 150);
        Put(picBar, 199, 5);
        picRight.ScaleMode = 0;
        picRight.ScaleLeft = -1000;
        picRight.ScaleWidth = 3000;
        picBar.Draggable = true;
        fraBox.Top = 150;
        fraBox.Width = fraBox.Height = 40;
    }
    static void Put(Surface& surface, double left, double width) {
        surface.Left = left;
        surface.Width = width;
        surface.Top = 20;
        surface.Height = 100;
    }
    ControlList Controls() override {
        return {{"picLeft", -1, "", &picLeft},
                {"picRight", -1, "", &picRight},
                {"picBar", -1, "", &picBar},
                {"fraBox", -1, "", &fraBox}};
    }
    void Reset() override { *this = DragForm(); }
};

struct GesturesTest : testing::Test {
    OwnFolders own;
    HostMachine machine{"1"};
    Workstation w{machine.platform};
    DragForm form;
    HostView view{w, machine, {&form}};
    std::string target;
    const Control* source = nullptr;
    double x = 0, y = 0;

    GesturesTest() {
        form.picLeft.DragDrop = NoteAs("left");
        form.picRight.DragDrop = NoteAs("right");
        ShowForm(w, form);
        view.Sync();
        Settle();
    }
    DropHandler NoteAs(const char* name) {
        return [this, name](Workstation&, const Control& from, double atX, double atY) {
            target = name;
            source = &from;
            x = atX;
            y = atY;
        };
    }
    QWidget* Client() { return view.WindowOf(form)->Client(); }
    QWidget* Find(const char* name) { return Client()->findChild<QWidget*>(name); }
    // From the middle of the bar, by as many pixels.
    void DragBar(int right, int down = 0, Qt::MouseButton button = Qt::LeftButton) {
        QWidget* bar = Find("picBar");
        const QPoint from = bar->rect().center();
        QTest::mousePress(bar, button, {}, from);
        QTest::mouseMove(bar, from + QPoint(right / 2, down / 2));
        QTest::mouseRelease(bar, button, {}, from + QPoint(right, down));
    }
};

TEST_F(GesturesTest, ADropComesInTheScaleOfItsTarget) {
    DragBar(-51, 10);
    EXPECT_EQ(target, "left");
    EXPECT_EQ(source, &form.picBar);
    EXPECT_EQ(x, 100);  // 199 + 2 - 51 in the client
    EXPECT_EQ(y, 59);
    DragBar(74);
    EXPECT_EQ(target, "right");
    EXPECT_EQ(x, -1000 + 75 * 20);  // 199 + 2 + 74 in the client
    EXPECT_EQ(y, 49);
}

TEST_F(GesturesTest, AUserScaleOfNoWidthCountsPixels) {
    form.picRight.ScaleWidth = 0;
    DragBar(74);
    EXPECT_EQ(x, -1000 + 75);
}

TEST_F(GesturesTest, ADropBesideAllTargetsDoesNothing) {
    DragBar(0, 100);
    DragBar(-190);
    form.picRight.Visible = false;
    view.Sync();
    DragBar(74);
    EXPECT_EQ(target, "");
}

TEST_F(GesturesTest, OnlyTheLeftButtonDragsAndOnlyWhatCanBeDragged) {
    DragBar(50, 0, Qt::RightButton);
    EXPECT_EQ(target, "");
    form.picBar.Draggable = false;
    view.Sync();
    DragBar(50);
    EXPECT_EQ(target, "");
    EXPECT_EQ(Find("picBar")->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(Find("picBar")->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GesturesTest, ALineShowsWhereTheBarWouldStand) {
    QWidget* bar = Find("picBar");
    EXPECT_EQ(bar->cursor().shape(), Qt::SplitHCursor);
    QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(2, 50));
    QTest::mouseMove(bar, QPoint(42, 50));
    auto* line = Client()->findChild<QRubberBand*>();
    ASSERT_NE(line, nullptr);
    EXPECT_TRUE(line->isVisible());
    EXPECT_EQ(line->geometry(), QRect(241, 20, 5, 100));
    QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(42, 50));
    EXPECT_EQ(Client()->findChild<QRubberBand*>(), nullptr);
}

TEST_F(GesturesTest, ArrowKeysMoveTheBarByAHundredth) {
    QWidget* bar = Find("picBar");
    EXPECT_TRUE(bar->focusPolicy() & Qt::TabFocus);
    QTest::keyClick(bar, Qt::Key_Left);
    EXPECT_EQ(target, "left");
    EXPECT_EQ(x, 147);
    QTest::keyClick(bar, Qt::Key_Right);
    EXPECT_EQ(target, "right");
    EXPECT_EQ(x, -1000 + 3 * 20);
    target.clear();
    QTest::keyClick(bar, Qt::Key_Up);
    EXPECT_EQ(target, "");
}

TEST_F(GesturesTest, ArrowKeysStopAtTheEdges) {
    form.picBar.Left = 50;
    view.Sync();
    QTest::keyClick(Find("picBar"), Qt::Key_Left);
    EXPECT_EQ(target, "left");
    EXPECT_EQ(x, 0);
    form.picBar.Left = 349;
    view.Sync();
    QTest::keyClick(Find("picBar"), Qt::Key_Right);
    EXPECT_EQ(target, "right");
    EXPECT_EQ(x, -1000 + 149 * 20);
}

TEST_F(GesturesTest, TheBarShowsThatItHasTheKeys) {
    view.WindowOf(form)->BringToFront();
    Settle();
    Find("picBar")->clearFocus();
    const QColor before = Find("picBar")->grab().toImage().pixelColor(2, 50);
    Find("picBar")->setFocus();
    EXPECT_NE(Find("picBar")->grab().toImage().pixelColor(2, 50), before);
}

// Colours to carry onto a field, as a dialog has them.
struct ColourForm : Form {
    Label colour, field;

    ColourForm() {
        Name = "frmColour";
        Width = 300 * TwipsPerPixel;
        Height = 100 * TwipsPerPixel;
        for (Label* label : {&colour, &field}) {
            label->Top = 10;
            label->Width = label->Height = 60;
        }
        colour.Left = 10;
        field.Left = 200;
        colour.Draggable = true;
    }
    ControlList Controls() override {
        return {{"colour", -1, "", &colour}, {"field", -1, "", &field}};
    }
    void Reset() override { *this = ColourForm(); }
};

struct ColourTest : testing::Test {
    OwnFolders own;
    HostMachine machine{"1"};
    Workstation w{machine.platform};
    ColourForm form;
    HostView view{w, machine, {&form}};
    int clicks = 0, drops = 0;

    ColourTest() {
        form.colour.Click = [this](Workstation&) { ++clicks; };
        form.field.DragDrop = [this](Workstation&, const Control& from, double, double) {
            if (&from == &form.colour) ++drops;
        };
        ShowForm(w, form);
        view.Sync();
        Settle();
    }
    QLabel* Colour() { return view.WindowOf(form)->Client()->findChild<QLabel*>("colour"); }
    void Carry(QPoint by) {
        const QPoint from = Colour()->rect().center();
        QTest::mousePress(Colour(), Qt::LeftButton, {}, from);
        QTest::mouseMove(Colour(), from + by);
        QTest::mouseRelease(Colour(), Qt::LeftButton, {}, from + by);
    }
};

TEST_F(ColourTest, AReleaseOnTheSpotIsAClick) {
    Carry({0, 0});
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(drops, 0);
}

TEST_F(ColourTest, WhatIsCarriedIsDroppedAndNotClicked) {
    Carry({190, 0});
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(drops, 1);
    EXPECT_EQ(view.WindowOf(form)->Client()->findChildren<QRubberBand*>().size(), 0);
}

TEST_F(ColourTest, TheSpaceBarClicksAndOnlyThat) {
    QTest::keyClick(Colour(), Qt::Key_Space);
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(Colour(), Qt::Key_Right);
    QTest::keyClick(Colour(), Qt::Key_A);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(drops, 0);
}

TEST_F(ColourTest, TheOneWithTheFocusHasAHeavyFrame) {
    Colour()->setFrameShape(QFrame::Panel);
    QFocusEvent in(QEvent::FocusIn), out(QEvent::FocusOut);
    QApplication::sendEvent(Colour(), &in);
    EXPECT_EQ(Colour()->lineWidth(), 3);
    QApplication::sendEvent(Colour(), &out);
    EXPECT_EQ(Colour()->lineWidth(), 1);
}

TEST_F(GesturesTest, TheMouseEntersOnceUntilItLeaves) {
    int entered = 0;
    form.fraBox.MouseEnter = [&](Workstation&) { ++entered; };
    QWidget* box = Find("fraBox");
    view.WindowOf(form)->BringToFront();
    Settle();
    QCursor::setPos(box->mapToGlobal(box->rect().center()));
    const QPointF at = box->rect().center();
    QEnterEvent enter(at, at, QPointF(box->mapToGlobal(at)));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(box, &enter);
    EXPECT_EQ(entered, 1);
    QCoreApplication::sendEvent(box, &enter);  // as after a box that the handler showed
    EXPECT_EQ(entered, 1);
    QCoreApplication::sendEvent(box, &leave);
    QCoreApplication::sendEvent(box, &enter);
    EXPECT_EQ(entered, 2);
}

}  // namespace
}  // namespace cumeron
