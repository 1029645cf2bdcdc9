// What the operator does in a form: modal forms that take all input, options, lists.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/form.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

// Each step of the script that runs while a form is shown modally is one call.
struct Bench {
    ScriptedMachine machine;
    Workstation w{machine.platform};
    std::vector<std::function<void()>> script;
    std::string trace;

    Bench() {
        machine.time.ServeMeanwhile = [this] {
            ASSERT_FALSE(script.empty());
            const std::function<void()> step = std::move(script.front());
            script.erase(script.begin());
            step();
        };
    }
    Handler Note(const char* name) {
        return [this, name](Workstation&) { trace += std::string(name) + " "; };
    }
};

TEST(ShowModal, LastsUntilTheFormIsHiddenOrUnloaded) {
    Bench bench;
    Form& form = bench.w.frmAbout;
    bench.script = {[&] {
                        EXPECT_TRUE(form.Visible);
                        EXPECT_EQ(ModalForm(bench.w), &form);
                    },
                    [&] { HideForm(form); }};
    ShowModal(bench.w, form);
    EXPECT_TRUE(bench.script.empty());
    EXPECT_EQ(ModalForm(bench.w), nullptr);
    EXPECT_TRUE(form.Loaded);

    bench.script = {[&] { UnloadForm(bench.w, form); }};
    ShowModal(bench.w, form);
    EXPECT_TRUE(bench.script.empty());
    EXPECT_EQ(ModalForm(bench.w), nullptr);
    EXPECT_EQ(form.ModalDepth, 0);
}

TEST(ShowModal, OpensAsAnyForm) {
    Bench bench;
    Form& form = bench.w.frmAbout;
    form.Load = bench.Note("Load");
    form.Resize = bench.Note("Resize");
    form.Activate = bench.Note("Activate");
    form.Paint = bench.Note("Paint");
    bench.script = {[&] { HideForm(form); }};
    ShowModal(bench.w, form);
    EXPECT_EQ(bench.trace, "Load Resize Activate Paint ");
}

TEST(ShowModal, FormThatIsShownAlreadyStaysAsItIs) {
    Bench bench;
    Form& form = bench.w.frmAbout;
    ShowForm(bench.w, form);
    form.Activate = bench.Note("Activate");
    ShowModal(bench.w, form);
    EXPECT_EQ(bench.trace, "");
    EXPECT_EQ(ModalForm(bench.w), nullptr);
}

TEST(ShowModal, FormThatClosesWhileItOpensIsNotWaitedFor) {
    Bench bench;
    Form& form = bench.w.frmAbout;
    form.Activate = [&](Workstation& w) { UnloadForm(w, form); };
    ShowModal(bench.w, form);
    EXPECT_FALSE(form.Visible);
}

TEST(ShowModal, DeepestFormHasTheInput) {
    Bench bench;
    Form& outer = bench.w.frmStart;
    Form& inner = bench.w.frmAbout;
    bench.script = {[&] {
                        ShowModal(bench.w, inner);
                        bench.trace += "inner ";
                        EXPECT_EQ(ModalForm(bench.w), &outer);
                    },
                    [&] {
                        EXPECT_EQ(ModalForm(bench.w), &inner);
                        UnloadForm(bench.w, inner);
                    },
                    [&] { UnloadForm(bench.w, outer); }};
    ShowModal(bench.w, outer);
    EXPECT_EQ(bench.trace, "inner ");
    EXPECT_TRUE(bench.script.empty());
}

TEST(ShowModal, ErrorsOfTheScriptComeThrough) {
    Bench bench;
    bench.script = {[] { throw RuntimeError(6); }};
    EXPECT_THROW(ShowModal(bench.w, bench.w.frmAbout), RuntimeError);
}

TEST(ChooseOption, PutsTheOthersOfItsFrameOutBeforeItsClick) {
    Bench bench;
    FrmConfigScrn& form = bench.w.ConfigScrn;
    form.Data7.Value = form.Stop2.Value = form.OddParity.Value = true;
    bool alone = false;
    form.Data8.Click = [&](Workstation&) { alone = form.Data8.Value && !form.Data7.Value; };
    form.Data7.Click = bench.Note("Data7");
    ChooseOption(bench.w, form, form.Data8);
    EXPECT_TRUE(alone);
    EXPECT_EQ(bench.trace, "");
    EXPECT_TRUE(form.Data8.Value);
    EXPECT_FALSE(form.Data7.Value);
    EXPECT_TRUE(form.Stop2.Value);
    EXPECT_TRUE(form.OddParity.Value);
    ChooseOption(bench.w, form, form.Data8);
    EXPECT_TRUE(form.Data8.Value);
}

TEST(ChooseOption, OptionsOnTheFormItselfBelongTogether) {
    Bench bench;
    FrmCType& form = bench.w.frmCType;
    ChooseOption(bench.w, form, form.optCType[1]);
    ChooseOption(bench.w, form, form.optCType[4]);
    EXPECT_FALSE(form.optCType[1].Value);
    EXPECT_TRUE(form.optCType[4].Value);
}

TEST(SelectItem, TakesTheTextOfTheItem) {
    Bench bench;
    ComboBox list;
    list.Items = {"300", "600"};
    list.Click = bench.Note("Click");
    list.Change = bench.Note("Change");
    const struct {
        int index, listIndex;
        const char* text;
    } cases[] = {{1, 1, "600"}, {2, -1, ""}, {0, 0, "300"}, {-1, -1, ""}};
    for (const auto& c : cases) {
        SelectItem(bench.w, list, c.index);
        EXPECT_EQ(list.ListIndex, c.listIndex) << c.index;
        EXPECT_EQ(list.Text, c.text) << c.index;
    }
    EXPECT_EQ(bench.trace, "Click Click Click Click ");
}

TEST(TypeItem, FindsTheItemOfThatText) {
    Bench bench;
    ComboBox list;
    list.Items = {"300", "600"};
    list.Click = bench.Note("Click");
    list.Change = bench.Note("Change");
    const struct {
        const char* text;
        int listIndex;
    } cases[] = {{"600", 1}, {"60", -1}, {"300", 0}, {"", -1}};
    for (const auto& c : cases) {
        TypeItem(bench.w, list, c.text);
        EXPECT_EQ(list.Text, c.text);
        EXPECT_EQ(list.ListIndex, c.listIndex) << c.text;
    }
    EXPECT_EQ(bench.trace, "Change Change Change Change ");
}

// A handler that unloads its form puts the record, and the handler in it, back.
TEST(Inputs, HandlersMayUnloadTheirForm) {
    Bench bench;
    FrmConfigScrn& form = bench.w.ConfigScrn;
    LoadForm(bench.w, form);
    std::string after;
    form.Data8.Click = [&form, &after, text = std::string(100, 'x')](Workstation& w) {
        UnloadForm(w, form);
        after = text;
    };
    ChooseOption(bench.w, form, form.Data8);
    EXPECT_EQ(after, std::string(100, 'x'));
    EXPECT_FALSE(form.Data8.Value);
}

}  // namespace
}  // namespace cumeron
