#include "shell/model_dialog.h"

#include <gtest/gtest.h>

#include <functional>

#include "graphs/graph_history.h"
#include "graphs/label_strips.h"
#include "intake/models.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::int16_t Codes[] = {70, 20, 10, 30, 50, 60};  // as the buttons stand

class ModelDialog : public testing::Test {
protected:
    ModelDialog() {
        w.shell.SettingsFile = "CUMERON1.INI";
        CreateHistory(w, 4);
        SetModel(30);
        DimensionProfiles(w);
    }
    void SetModel(std::int16_t code) {
        w.settings.CEILOMETER = code;
        LoadModel(w, LoadedBy::Start);
    }
    void PutFile(const std::string& keys) {
        machine.files.Put("C:\\WINDOWS\\CUMERON1.INI", "[CUMERON]\r\n" + keys);
    }
    // Shows the dialog and lets the operator work in it.
    void Show(const std::function<void()>& work) {
        machine.time.At(0, [&] {
            EXPECT_EQ(ModalForm(w), &form);
            work();
        });
        w.frmMain.mnuCeiloType.Click(w);
        EXPECT_FALSE(form.Loaded);
    }
    void Choose(std::int16_t code) {
        Show([&] {
            const auto at = std::find(std::begin(Codes), std::end(Codes), code) - std::begin(Codes);
            ChooseOption(w, form, form.optCType.at(static_cast<std::size_t>(at)));
            form.Command1.Click(w);
        });
    }
    // The code of the chosen button, 0 for none, -1 for more than one.
    int Shown() {
        int shown = 0;
        for (std::size_t i = 0; i < form.optCType.size(); ++i) {
            if (form.optCType[i].Value) shown = shown == 0 ? Codes[i] : -1;
        }
        return shown;
    }

    ScriptedMachine machine;
    Workstation w{machine.platform};
    FrmCType& form = w.frmCType;
};

TEST_F(ModelDialog, ShowsTheModelInUse) {
    for (const int code : {70, 20, 10, 30, 50, 60}) {
        w.settings.CEILOMETER = static_cast<std::int16_t>(code);
        Show([&] {
            EXPECT_EQ(Shown(), code);
            form.Command2.Click(w);
        });
    }
    w.settings.CEILOMETER = 31;
    Show([&] {
        EXPECT_EQ(Shown(), 0);
        form.Command2.Click(w);
    });
}

TEST_F(ModelDialog, ButtonsBearTheNamesOfTheModels) {
    for (std::size_t i = 0; i < form.optCType.size(); ++i) {
        SetModel(Codes[i]);
        EXPECT_EQ(form.optCType[i].Caption, w.model.name);
    }
    EXPECT_EQ(form.Caption, "CEILOMETER");
    EXPECT_EQ(form.Command1.Caption, "OK");
    EXPECT_EQ(form.Command2.Caption, "Cancel");
}

TEST_F(ModelDialog, OkLoadsTheChosenModel) {
    for (const std::int16_t code : Codes) {
        Choose(code);
        EXPECT_EQ(w.settings.CEILOMETER, code);
        EXPECT_EQ(w.model.code, code);
        EXPECT_EQ(w.frmMain.lblCT.Caption, w.model.name);
        EXPECT_EQ(w.frmSkyCond.lblCT_2.Caption, w.model.name);
    }
}

TEST_F(ModelDialog, TheTq60HasOtherPlacesThanAtTheStart) {
    Choose(60);
    EXPECT_EQ(w.model.PosAngle, 74);
    EXPECT_EQ(w.model.PosDetection, 13);
    EXPECT_EQ(w.model.PosExport, 92);
}

TEST_F(ModelDialog, TheRv10xDrawsBothAndTheNextModelTheModeBefore) {
    w.settings.Cloudmode = 1;
    w.graphs.PreviousCloudmode = 0;
    w.settings.Status_Log = 1;
    Choose(10);
    EXPECT_EQ(w.settings.Cloudmode, 2);
    EXPECT_EQ(w.graphs.PreviousCloudmode, 1);
    EXPECT_EQ(w.settings.Status_Log, 0);
    w.settings.Status_Log = 1;
    Choose(20);
    EXPECT_EQ(w.settings.Cloudmode, 1);
    EXPECT_EQ(w.settings.Status_Log, 1);
}

TEST_F(ModelDialog, ReadsTheIntervalForTheKnFamilyAndTheTq60) {
    const struct {
        std::int16_t code;
        const char* keys;
        int interval;
    } cases[] = {
        {70, "Message_Interval=40\r\n", 33},
        {20, "Message_Interval=40\r\n", 33},
        {10, "Message_Interval=40\r\n", 33},
        {30, "Message_Interval=40\r\n", 40},
        {50, "Message_Interval=40\r\n", 40},
        {60, "Message_Interval=40\r\n", 40},
        {30, "", 15},
    };
    for (const auto& c : cases) {
        PutFile(c.keys);
        w.settings.Message_Interval = 33;
        w.settings.Compress = 2;
        Choose(c.code);
        EXPECT_EQ(w.settings.Message_Interval, c.interval) << c.code << c.keys;
    }
}

TEST_F(ModelDialog, ABadIntervalIsToldAndTheModelLoaded) {
    PutFile("Message_Interval=soon\r\n");
    w.settings.Message_Interval = 33;
    Choose(50);
    EXPECT_NE(machine.dialogs.TakeBox().value_or("").find("Error Number: 13"), std::string::npos);
    EXPECT_EQ(w.settings.Message_Interval, 33);
    EXPECT_EQ(w.graphs.GraphHistory[1].Profile.size(), 1541u);
}

TEST_F(ModelDialog, OkEmptiesTheHistoryAlsoForTheSameModel) {
    for (const std::int16_t code : {std::int16_t{30}, std::int16_t{50}}) {
        GraphState& graphs = w.graphs;
        graphs.HistoryIndex = 3;
        graphs.HistoryWrapped = -1;
        graphs.GraphHistory[2].Profile[7] = 5;
        Choose(code);
        EXPECT_EQ(graphs.HistoryIndex, 0);
        EXPECT_EQ(graphs.HistoryWrapped, 0);
        for (const GraphRecord& record : graphs.GraphHistory) {
            EXPECT_EQ(record.Profile, std::vector<std::int32_t>(
                                          static_cast<std::size_t>(w.model.ProfileLength) + 1));
        }
    }
}

TEST_F(ModelDialog, OkStartsTheGraphsAfresh) {
    Settings& settings = w.settings;
    settings.Step_Linear = settings.Back_Step_Linear = 1;
    settings.Clouds_Y_User_Defined = settings.Backscatter_Y_User_Defined = -1;
    settings.Units = 1;
    MarkLabelStrips(w);
    Surface& graph = w.frmMain.picCombination;
    graph.PSet(1, 1, 0x0000FF);
    const int empty = graph.BackColor;
    ASSERT_NE(graph.Pixel(1, 1), empty);
    Choose(30);
    EXPECT_EQ(settings.Step_Linear, 0);
    EXPECT_EQ(settings.Back_Step_Linear, 0);
    EXPECT_EQ(settings.Clouds_Y_User_Defined, 0);
    EXPECT_EQ(settings.Backscatter_Y_User_Defined, 0);
    EXPECT_TRUE(LabelStripsAreNew(w));
    EXPECT_EQ(graph.Pixel(1, 1), empty);
    EXPECT_EQ(w.frmMain.fraValues.Caption, "Instant Values [m]");
}

TEST_F(ModelDialog, WithoutAChoiceTheModelStaysAndTheHistoryGoes) {
    w.settings.CEILOMETER = 31;
    w.settings.Cloudmode = 1;
    w.settings.Message_Interval = 33;
    w.graphs.HistoryIndex = 3;
    Show([&] { form.Command1.Click(w); });
    EXPECT_EQ(w.settings.CEILOMETER, 31);
    EXPECT_EQ(w.settings.Cloudmode, 1);
    EXPECT_EQ(w.settings.Message_Interval, 33);
    EXPECT_EQ(w.graphs.HistoryIndex, 0);
}

TEST_F(ModelDialog, CancelChangesNothing) {
    w.settings.Step_Linear = 1;
    w.settings.Message_Interval = 33;
    w.graphs.HistoryIndex = 3;
    Show([&] {
        ChooseOption(w, form, form.optCType[0]);
        form.Command2.Click(w);
    });
    EXPECT_EQ(w.settings.CEILOMETER, 30);
    EXPECT_EQ(w.model.code, 30);
    EXPECT_EQ(w.settings.Step_Linear, 1);
    EXPECT_EQ(w.settings.Message_Interval, 33);
    EXPECT_EQ(w.graphs.HistoryIndex, 3);
}

}  // namespace
}  // namespace cumeron
