// What the simulated instrument sends, live and from its log: every message of every model has to
// look the same in a replay as when it arrived.
#include <gtest/gtest.h>

#include <sstream>

#include "intake/intake.h"
#include "logging/playback.h"
#include "outputs.h"
#include "platform/scripted/scripted_machine.h"
#include "setups.h"
#include "shell/dispatch.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron::sim {
namespace {

constexpr int MessagesSent = 8;

// What the operator sees of one message, and what the graphs are made of.
struct Seen {
    std::int16_t id = 0;
    std::string frameText, errors, status, battery, unit;
    std::vector<std::string> values;
    double scale = 0;
    std::vector<std::int32_t> profile;
    std::int16_t valid = 0;

    bool operator==(const Seen&) const = default;
};

Seen See(Workstation& w) {
    const auto& slot = w.graphs.ProfileRing.at(static_cast<std::size_t>(w.graphs.ProfileSlot));
    const auto& bar = w.frmMain.sbaStatus;
    Seen seen{w.intake.MessageId,
              w.intake.FrameText,
              bar.Errors.Text,
              bar.Status.Text,
              bar.Battery.Text,
              w.graphs.UnitLabel,
              {},
              w.intake.ProfileScale,
              {slot.Profile.begin(), slot.Profile.end()},
              slot.Valid};
    for (const Label& value : w.frmMain.CloudValue) seen.values.push_back(value.Caption);
    for (const Label& text : w.frmMain.lblCloudtext) seen.values.push_back(text.Caption);
    return seen;
}

struct Program {
    ScriptedMachine machine;

    explicit Program(const SimulatedRun& run) {
        machine.files.Put("C:\\WINDOWS\\CUMERON1.INI",
                          "[CUMERON]\r\nCEILOMETER=" + std::to_string(run.setup.model->code) +
                              "\r\nUnits=" + (run.setup.metres ? "1" : "0") + "\r\n");
        machine.Start("");
    }
    Workstation& w() { return *machine.Program(); }
};

std::vector<Seen> SeenLive(const SimulatedRun& run) {
    Program program(run);
    ResetIndicators(program.w());  // a replay begins so too
    std::vector<Seen> seen;
    for (int i = 0; i < MessagesSent; ++i) {
        program.machine.Enter([&] { HandleMessage(program.w(), MessageOf(run, i).bytes); });
        seen.push_back(See(program.w()));
    }
    return seen;
}

std::vector<Seen> SeenInReplay(const SimulatedRun& run) {
    std::ostringstream log;
    WriteLog(log, run, run.setup.interval * (MessagesSent - 0.5) / 3600);
    Program program(run);
    program.machine.files.Put("C:\\A.DAT", log.str());
    program.machine.dialogs.ChooseNext("C:\\A.DAT");
    program.machine.Enter([&] { DispatchEvent(program.w(), OpenOffline); });
    EXPECT_EQ(program.w().offline.OfflineMessageNo, MessagesSent);
    program.machine.Enter([&] { GotoFileStart(program.w()); });
    std::vector<Seen> seen{See(program.w())};
    for (int i = 1; i < MessagesSent; ++i) {
        program.machine.Enter([&] { StepForward(program.w()); });
        seen.push_back(See(program.w()));
    }
    return seen;
}

TEST(Replay, ShowsEveryMessageAsItWasWhenItArrived) {
    for (const ModelRow& model : Models()) {
        for (const MessageRow& message : Messages()) {
            if (!HasMessage(model, message)) continue;
            SimulatedRun run = MakeRun(model.name, message.key);
            // Sunny and foggy hours, an alarm in the middle, and units of both kinds.
            run.setup.metres = message.samples % 3 == 0;
            run.setup.health = Health::Alarm;
            run.setup.healthFrom = run.start + 4 * run.setup.interval;
            const std::vector<Seen> live = SeenLive(run);
            const std::vector<Seen> replayed = SeenInReplay(run);
            ASSERT_EQ(live.size(), replayed.size());
            for (std::size_t i = 0; i < live.size(); ++i) {
                EXPECT_NE(live[i].id, -1) << model.name << " " << message.key;
                EXPECT_EQ(live[i].id, replayed[i].id) << model.name << " " << message.key;
                EXPECT_EQ(live[i].frameText, replayed[i].frameText)
                    << model.name << " " << message.key << " " << i;
                EXPECT_EQ(live[i].values, replayed[i].values)
                    << model.name << " " << message.key << " " << i;
                EXPECT_TRUE(live[i] == replayed[i]) << model.name << " " << message.key << " " << i;
            }
        }
    }
}

}  // namespace
}  // namespace cumeron::sim
