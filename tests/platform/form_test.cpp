#include "platform/form.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

std::string trace;  // the handlers that ran, in order

Handler Note(const char* name) {
    return [name](Workstation&) { trace += std::string(name) + " "; };
}

struct TestForm : Form {
    bool keep = false;

    TestForm() {
        Width = 300;
        Height = 150;
        Load = Note("Load");
        Resize = Note("Resize");
        Activate = Note("Activate");
        Paint = Note("Paint");
        Unload = Note("Unload");
        QueryUnload = [this](Workstation&) {
            trace += "QueryUnload ";
            return keep;
        };
    }
    ControlList Controls() override { return {}; }
    void Reset() override {
        Caption = "";
        Loaded = Visible = false;
        BroughtToFront = SentToBack = 0;
    }
};

class FormLife : public testing::Test {
protected:
    void SetUp() override { trace.clear(); }
    std::string Traced() { return std::exchange(trace, ""); }

    ScriptedMachine machine;
    Workstation w{machine.platform};
    TestForm form;
};

TEST_F(FormLife, LoadsOnce) {
    LoadForm(w, form);
    EXPECT_TRUE(form.Loaded);
    EXPECT_FALSE(form.Visible);
    LoadForm(w, form);
    EXPECT_EQ(Traced(), "Load ");
}

TEST_F(FormLife, IsLoadedWhileItsLoadRuns) {
    bool loaded = false;
    form.Load = [&](Workstation&) { loaded = form.Loaded; };
    LoadForm(w, form);
    EXPECT_TRUE(loaded);
}

TEST_F(FormLife, ResizeComesAtTheFirstShowAlone) {
    ShowForm(w, form);
    EXPECT_TRUE(form.Visible);
    EXPECT_EQ(Traced(), "Load Resize Activate Paint ");
    HideForm(form);
    EXPECT_FALSE(form.Visible);
    EXPECT_TRUE(form.Loaded);
    ShowForm(w, form);
    EXPECT_TRUE(form.Visible);
    EXPECT_EQ(Traced(), "Activate Paint ");
}

TEST_F(FormLife, ResizeComesAgainAfterANewLoad) {
    ShowForm(w, form);
    UnloadForm(w, form);
    EXPECT_EQ(Traced(), "Load Resize Activate Paint Unload ");
    ShowForm(w, form);
    EXPECT_EQ(Traced(), "Load Resize Activate Paint ");
}

TEST_F(FormLife, IsVisibleWhenResizeComes) {
    bool visible = false;
    form.Resize = [&](Workstation&) { visible = form.Visible; };
    ShowForm(w, form);
    EXPECT_TRUE(visible);
}

TEST_F(FormLife, WithoutHandlersLivesTheSameLife) {
    form.Load = form.Resize = form.Activate = form.Paint = form.Unload = nullptr;
    form.QueryUnload = nullptr;
    ShowForm(w, form);
    ResizeForm(w, form, 10, 10);
    EXPECT_TRUE(CloseForm(w, form));
    EXPECT_FALSE(form.Loaded);
}

TEST_F(FormLife, CloseAsksBeforeItUnloads) {
    ShowForm(w, form);
    Traced();
    form.keep = true;
    EXPECT_FALSE(CloseForm(w, form));
    EXPECT_EQ(Traced(), "QueryUnload ");
    EXPECT_TRUE(form.Loaded);
    form.keep = false;
    EXPECT_TRUE(CloseForm(w, form));
    EXPECT_EQ(Traced(), "QueryUnload Unload ");
    EXPECT_FALSE(form.Loaded);
}

TEST_F(FormLife, UnloadPutsTheDesignStateBackAfterTheHandler) {
    LoadForm(w, form);
    form.Caption = "changed";
    std::string seen;
    form.Unload = [&](Workstation&) { seen = form.Caption; };
    UnloadForm(w, form);
    EXPECT_EQ(seen, "changed");
    EXPECT_EQ(form.Caption, "");
    EXPECT_FALSE(form.Loaded);
}

TEST_F(FormLife, UnloadOfAFormThatIsNotLoadedDoesNothing) {
    form.Caption = "kept";
    UnloadForm(w, form);
    EXPECT_EQ(Traced(), "");
    EXPECT_EQ(form.Caption, "kept");
}

TEST_F(FormLife, TheOrderOfWindowsGoesOnCountingOverAnUnload) {
    LoadForm(w, form);
    form.BroughtToFront = 3;
    form.SentToBack = 2;
    UnloadForm(w, form);
    EXPECT_EQ(form.BroughtToFront, 3u);
    EXPECT_EQ(form.SentToBack, 2u);
}

TEST_F(FormLife, ShowingDoesNotBringToTheFrontByItself) {
    ShowForm(w, form);
    EXPECT_EQ(form.BroughtToFront, 0u);
}

TEST_F(FormLife, ResizeTakesPixelsAndKeepsTwips) {
    LoadForm(w, form);
    Traced();
    ResizeForm(w, form, 640, 360);
    EXPECT_EQ(form.Width, 9600);
    EXPECT_EQ(form.Height, 5400);
    EXPECT_EQ(form.ScaleWidth(), 640);
    EXPECT_EQ(form.ScaleHeight(), 360);
    EXPECT_EQ(Traced(), "Resize ");
}

TEST_F(FormLife, WindowStateIsStoredBeforeResize) {
    LoadForm(w, form);
    int seen = -1;
    form.Resize = [&](Workstation&) { seen = form.WindowState; };
    ChangeWindowState(w, form, 2);
    EXPECT_EQ(seen, 2);
}

// Left, Top, Width and Height of the record, in twips.
using Place = std::array<double, 4>;
Place PlaceOf(const Form& form) { return {form.Left, form.Top, form.Width, form.Height}; }

TEST_F(FormLife, TheNormalPlaceComesBackFromEveryOtherState) {
    const Place normal = {150, 75, 6000, 4500};
    const struct {
        const char* what;
        void (*go)(Workstation&, Form&);
    } ways[] = {
        {"maximised", [](Workstation& of, Form& f) { ChangeWindowState(of, f, 2, 1024, 768); }},
        {"maximised, its size later",
         [](Workstation& of, Form& f) {
             ChangeWindowState(of, f, 2);
             ResizeForm(of, f, 1024, 768);
         }},
        {"moved while maximised",
         [](Workstation& of, Form& f) {
             ChangeWindowState(of, f, 2, 1024, 768);
             MoveForm(of, f, 3000, 3000);
         }},
        {"minimised", [](Workstation& of, Form& f) { ChangeWindowState(of, f, 1); }},
        {"minimised from maximised",
         [](Workstation& of, Form& f) {
             ChangeWindowState(of, f, 2, 1024, 768);
             ChangeWindowState(of, f, 1);
         }},
        {"a state that was set alone", [](Workstation&, Form& f) { f.WindowState = 2; }},
    };
    for (const auto& way : ways) {
        TestForm fresh;
        LoadForm(w, fresh);
        MoveForm(w, fresh, normal[0], normal[1]);
        ResizeForm(w, fresh, 400, 300);
        ASSERT_EQ(PlaceOf(fresh), normal);
        way.go(w, fresh);
        ChangeWindowState(w, fresh, 0);
        EXPECT_EQ(PlaceOf(fresh), normal) << way.what;
        EXPECT_EQ(fresh.WindowState, 0) << way.what;
    }
}

TEST_F(FormLife, APlaceMovedToLastIsTheNormalOne) {
    LoadForm(w, form);
    ResizeForm(w, form, 400, 300);
    MoveForm(w, form, 150, 75);
    form.WindowState = 2;
    form.Left = 3000;
    ChangeWindowState(w, form, 0);
    EXPECT_EQ(PlaceOf(form), (Place{150, 75, 6000, 4500}));
}

TEST_F(FormLife, APlaceSetInTheRecordIsTheNormalOneToo) {
    LoadForm(w, form);
    form.Left = 45;
    ChangeWindowState(w, form, 2, 1024, 768);
    EXPECT_EQ(form.Width, 15360);
    EXPECT_EQ(form.Height, 11520);
    ChangeWindowState(w, form, 0);
    EXPECT_EQ(PlaceOf(form), (Place{45, 0, 300, 150}));

    form.WindowState = 2;
    form.Top = 60;
    KeepNormalPlace(form);
    ChangeWindowState(w, form, 0);
    EXPECT_EQ(PlaceOf(form), (Place{45, 60, 300, 150}));
}

TEST_F(FormLife, ANewSizeThatComesWithTheNormalStateIsTheNormalOne) {
    LoadForm(w, form);
    ChangeWindowState(w, form, 2, 1024, 768);
    ChangeWindowState(w, form, 0, 400, 300);
    EXPECT_EQ(PlaceOf(form), (Place{0, 0, 6000, 4500}));
    form.WindowState = 1;
    form.Width = 1;
    ChangeWindowState(w, form, 0);
    EXPECT_EQ(PlaceOf(form), (Place{0, 0, 6000, 4500}));
}

TEST_F(FormLife, StateAndSizeAreStoredBeforeOneResize) {
    LoadForm(w, form);
    int seen = 0;
    form.Resize = [&](Workstation&) {
        ++seen;
        EXPECT_EQ(form.WindowState, 2);
        EXPECT_EQ(form.Width, 15360);
    };
    ChangeWindowState(w, form, 2, 1024, 768);
    EXPECT_EQ(seen, 1);
}

TEST_F(FormLife, AFormThatIsNotLoadedIsNotChanged) {
    ResizeForm(w, form, 640, 360);
    ChangeWindowState(w, form, 2);
    ChangeWindowState(w, form, 2, 640, 360);
    MoveForm(w, form, 30, 30);
    EXPECT_EQ(form.Left, 0);
    EXPECT_EQ(form.Width, 300);
    EXPECT_EQ(form.WindowState, 0);
    EXPECT_EQ(Traced(), "");
}

// A handler that is destroyed while it runs would run on in memory that is free.
TEST_F(FormLife, HandlersOutliveTheResetThatTheyCause) {
    static std::weak_ptr<int> held;
    static bool alive;
    auto token = std::make_shared<int>(0);
    held = token;
    alive = false;
    form.Activate = [this, token](Workstation&) {
        form.Activate = nullptr;
        alive = !held.expired();
    };
    token.reset();
    ShowForm(w, form);
    EXPECT_TRUE(alive);

    auto answer = std::make_shared<int>(0);
    held = answer;
    alive = false;
    form.QueryUnload = [this, answer](Workstation&) {
        form.QueryUnload = nullptr;
        alive = !held.expired();
        return true;
    };
    answer.reset();
    EXPECT_FALSE(CloseForm(w, form));
    EXPECT_TRUE(alive);
}

}  // namespace
}  // namespace cumeron
