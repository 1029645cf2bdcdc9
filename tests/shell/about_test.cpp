#include "shell/about.h"

#include <gtest/gtest.h>

#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

class AboutBox : public testing::Test {
protected:
    // The line about the copies, as the box shows it.
    std::string Instance() {
        std::string shown;
        machine.time.At(0, [&] {
            shown = w.frmAbout.lblInstance.Caption;
            w.frmAbout.Command1.Click(w);
        });
        w.frmMain.mnuAbout.Click(w);
        EXPECT_FALSE(w.frmAbout.Loaded);
        return shown;
    }

    ScriptedMachine machine;
    Workstation w{machine.platform};
};

TEST_F(AboutBox, CountsTheCopiesUpToTwenty) {
    w.shell.InstanceNumber = 2;
    w.shell.SettingsFile = "CUMERON7.INI";
    const struct {
        std::set<int> marks;
        const char* shown;
    } cases[] = {
        {{}, "Instance:2/0 CUMERON7.INI"},
        {{1, 2}, "Instance:2/2 CUMERON7.INI"},
        {{1, 11, 20}, "Instance:2/3 CUMERON7.INI"},
        {{2, 21}, "Instance:2/1 CUMERON7.INI"},
    };
    for (const auto& c : cases) {
        machine.copies.marks = c.marks;
        EXPECT_EQ(Instance(), c.shown);
    }
}

TEST_F(AboutBox, NamesTheVersion) {
    EXPECT_EQ(w.frmAbout.Caption, "About CUMERON");
    EXPECT_EQ(w.frmAbout.lblVersion.Caption, "Cumeron  Version 2.0");
}

}  // namespace
}  // namespace cumeron
