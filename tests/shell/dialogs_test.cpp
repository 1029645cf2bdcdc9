#include "shell/dialogs.h"

#include <gtest/gtest.h>

#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

class Dialog : public testing::Test {
protected:
    // What the sky window was like while the dialog was shown.
    struct Meanwhile {
        bool dialogShown = false, topMost = false;
        unsigned sentToBack = 0;
    };
    Meanwhile Show() {
        Meanwhile seen;
        machine.time.At(0, [&] {
            seen = {ModalForm(w) == &w.frmAbout, w.frmSkyCond.TopMost, w.frmSkyCond.SentToBack};
            UnloadForm(w, w.frmAbout);
        });
        ShowDialog(w, w.frmAbout);
        return seen;
    }

    ScriptedMachine machine;
    Workstation w{machine.platform};
};

TEST_F(Dialog, IsModalAndReturnsWhenItIsGone) {
    EXPECT_TRUE(Show().dialogShown);
    EXPECT_FALSE(w.frmAbout.Visible);
}

TEST_F(Dialog, IsNotCoveredByTheSkyWindow) {
    w.frmMain.mnuSkyCond.Checked = true;
    w.settings.Sky_Cond_On_Top = 1;
    w.frmSkyCond.TopMost = true;
    const Meanwhile seen = Show();
    EXPECT_FALSE(seen.topMost);
    EXPECT_EQ(seen.sentToBack, 1u);
    EXPECT_TRUE(w.frmSkyCond.TopMost);
}

TEST_F(Dialog, LeavesAHiddenSkyWindowAlone) {
    w.settings.Sky_Cond_On_Top = 1;
    w.frmSkyCond.TopMost = true;
    const Meanwhile seen = Show();
    EXPECT_TRUE(seen.topMost);
    EXPECT_EQ(seen.sentToBack, 0u);
}

TEST_F(Dialog, PutsTheSkyWindowOnTopOnlyWhenWanted) {
    w.frmMain.mnuSkyCond.Checked = true;
    for (const int wanted : {0, 1, 2}) {
        w.settings.Sky_Cond_On_Top = static_cast<std::int16_t>(wanted);
        Show();
        EXPECT_EQ(w.frmSkyCond.TopMost, wanted == 1) << wanted;
    }
}

}  // namespace
}  // namespace cumeron
