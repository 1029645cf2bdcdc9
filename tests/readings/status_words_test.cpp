#include "readings/status_words.h"

#include <gtest/gtest.h>

#include <span>

#include "intake/decode.h"
#include "intake/models.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

class StatusWords : public testing::Test {
protected:
    void SetModel(std::int16_t code) {
        w.settings.CEILOMETER = code;
        LoadModel(w, LoadedBy::Start);
        w.readings.StatusDigits.fill(0);
        w.settings.Message_Interval = 15;
        w.intake.IntervalSeekState = 4;
    }
    // The lines behind the interval line for a word with the bit set, counted from its first bit.
    std::string TextWithBit(std::size_t bit) {
        w.readings.StatusDigits.fill(0);
        w.readings.StatusDigits[bit / 4] = static_cast<std::int16_t>(8 >> bit % 4);
        return StatusText();
    }
    std::string StatusText() {
        BuildStatusText(w);
        const std::string& text = w.readings.StatusText;
        const auto end = text.find('\r');
        return end == text.npos ? "" : text.substr(end + 1);
    }

    ScriptedMachine machine;
    Workstation w{machine.platform};
};

TEST(AppendLine, PutsACarriageReturnBetweenTheLines) {
    EXPECT_EQ(AppendLine("", "first"), "first");
    EXPECT_EQ(AppendLine("first", "second"), "first\rsecond");
    EXPECT_EQ(AppendLine("first\rsecond", ""), "first\rsecond\r");
}

// From bit 47 on; "" for a bit that only chooses between two lines.
const char* const KnTrouble[] = {
    "Transmitter shut-off (A)",
    "Transmitter failure (A)",
    "Receiver failure (A)",
    "voltage failure (A)",
    "Alignment failure (A)",
    "Memory Error (A)",
    "Light path obstruction (A)",
    "Receiver saturation (A)",
    "(Unknown b39) (A)",
    "(Unknown b38) (A)",
    "(Unknown b37) (A)",
    "(Unknown b36) (A)",
    "(Unknown b35) (A)",
    "(Unknown b34) (A)",
    "Coaxial cable failure (A)",
    "Ceilometer engine board failure (A)",
    "Window contamination (W)",
    "Battery voltage low (W)",
    "Transmitter expires (W)",
    "High Humidity (W)",
    "(Unknown b27) (W)",
    "Blower failure (W)",
    "(Unknown b25) (W)",
    "Humidity sensor failure (W)",
    "Heater fault (W)",
    "High background radiance (W)",
    "Ceilometer engine board failure (W)",
    "Battery failure (W)",
    "Laser monitor failure (W)",
    "Receiver Warning (W)",
    "Tilt angle > 45 deg warning (W)",
    "(Unknown b16) (W)",
};
const char* const RvTrouble[] = {
    "Laser Temperature shut-off (A)",
    "Laser Failure (A)",
    "Receiver failure (A)",
    "Voltage failure (A)",
    "Profile Error (A)",
    "b26 Unknown (A)",
    "b25 Unknown (A)",
    "b24 Unknown (A)",
    "Window contaminated (W)",
    "Battery low (W)",
    "Laser power low (W)",
    "Laser temperature high or low (W)",
    "Internal temperature high or low (W)",
    "Voltage high or low (W)",
    "Relative Humidity is > 85% (W)",
    "Receiver optical cross-talk compensation poor (W)",
    "Blower suspect (W)",
    "Profile Warning (W)",
    "b13 Unknown (W)",
    "b12 Unknown (W)",
};

TEST_F(StatusWords, EachAlarmAndWarningBitHasItsLine) {
    const struct {
        std::int16_t model;
        std::span<const char* const> lines;
    } cases[] = {{30, KnTrouble}, {50, KnTrouble}, {20, RvTrouble},
                 {70, RvTrouble}, {10, RvTrouble}, {60, RvTrouble}};
    for (const auto& c : cases) {
        SetModel(c.model);
        for (std::size_t bit = 0; bit < 48; ++bit) {
            TextWithBit(bit);
            EXPECT_EQ(AlarmWarningText(w), bit < c.lines.size() ? c.lines[bit] : "")
                << c.model << " bit " << bit << " from the first";
        }
    }
}

TEST_F(StatusWords, AlarmsAndWarningsStandInTheOrderOfTheWord) {
    const struct {
        std::int16_t model;
        std::span<const char* const> lines;
    } cases[] = {{30, KnTrouble}, {20, RvTrouble}};
    for (const auto& c : cases) {
        SetModel(c.model);
        w.readings.StatusDigits.fill(15);
        std::string all;
        for (const char* line : c.lines) all = AppendLine(all, line);
        EXPECT_EQ(AlarmWarningText(w), all);
    }
}

TEST_F(StatusWords, EachStateBitOfTheKnFamilyHasItsLine) {
    const char* const before[] = {"Blower is on",
                                  "Blower Heater is on",
                                  "Internal Heater is on",
                                  "Working from Battery",
                                  "Standby",
                                  "Self Test in progress",
                                  "Service mode is on (manual settings are effective)",
                                  "(Unknown b08)"};
    const char* const behind[] = {
        "Manual Blower control", "Polling mode is on", "(spare b04)", "(spare b03)",
        "(spare b02)",           "(spare b01)",        "(spare b00)"};
    const std::string head = "Tilt Angle: degrees\rWindow Condition: \r";
    SetModel(50);
    for (std::size_t i = 0; i < std::size(before); ++i) {
        EXPECT_EQ(TextWithBit(32 + i), head + before[i] + "\rUnits are feet");
    }
    EXPECT_EQ(TextWithBit(40), head + "Units are meters");
    for (std::size_t i = 0; i < std::size(behind); ++i) {
        EXPECT_EQ(TextWithBit(41 + i), head + "Units are feet\r" + behind[i]);
    }
}

TEST_F(StatusWords, EachStateBitOfTheRvFamilyHasItsLine) {
    const struct {
        std::int16_t model;
        const char* angle;
    } models[] = {{20, "Tilt angle is > 45 degrees"}, {70, "Elevation angle is < 45 degrees"}};
    for (const auto& m : models) {
        const char* const before[] = {"Blower is ON", "Blower Heater is ON",
                                      "Internal Heater is ON"};
        const char* const behind[] = {"Polling mode is on",
                                      "Working from battery",
                                      "Single sequence mode is ON",
                                      "Manual settings are effective",
                                      m.angle,
                                      "High background radiance",
                                      "Blower is manually controlled",
                                      "b00 Unknown"};
        SetModel(m.model);
        for (std::size_t i = 0; i < std::size(before); ++i) {
            EXPECT_EQ(TextWithBit(20 + i), std::string(before[i]) + "\rUnits are FEET");
        }
        EXPECT_EQ(TextWithBit(23), "Units are METERS");
        for (std::size_t i = 0; i < std::size(behind); ++i) {
            EXPECT_EQ(TextWithBit(24 + i), std::string("Units are FEET\r") + behind[i]);
        }
    }
}

TEST_F(StatusWords, EachDigitOfTheRv10xIsAFlag) {
    const char* const before[] = {"HARDWARE ALARM ",   "SUPPLY VOLTAGE ALARM", "LASER POWER LOW",
                                  "TEMPERATURE ALARM", "SOLAR SHUTTER ON",     "BLOWER ON",
                                  "HEATER ON"};
    SetModel(10);
    for (std::size_t digit = 0; digit < 10; ++digit) {
        const std::size_t bit = digit * 4 + 3;
        const std::string expected = digit < 7    ? std::string(before[digit]) + "\rUNIT IS FEET"
                                     : digit == 7 ? "UNIT IS METERS"
                                     : digit == 8 ? "UNIT IS FEET\rSAVING MODE ON"
                                                  : "UNIT IS FEET\rPOLLING MODE ON";
        EXPECT_EQ(TextWithBit(bit), expected) << digit;
        EXPECT_EQ(TextWithBit(bit - 1), "UNIT IS FEET") << digit << ", another bit of the digit";
    }
}

TEST_F(StatusWords, Rv10xShowsNoLinesOfTheOtherFamilies) {
    SetModel(10);
    w.intake.MessageId = 16;
    w.readings.StatusDigits[0] = 8;
    EXPECT_EQ(StatusText(), "UNIT IS FEET");
}

TEST_F(StatusWords, Tq60HasTheIntervalLineAlone) {
    SetModel(60);
    w.readings.StatusDigits.fill(15);
    BuildStatusText(w);
    EXPECT_EQ(w.readings.StatusText, "Message Interval: 15 s");
}

TEST_F(StatusWords, IntervalLineTellsWhetherTheIntervalIsKnown) {
    const struct {
        std::int16_t state, compress, interval;
        const char* line;
    } cases[] = {
        {0, 0, 15, "Message Interval: Not yet defined. (used value 15 s)"},
        {3, 0, 15, "Message Interval: Not yet defined. (used value 15 s)"},
        {4, 0, 15, "Message Interval: 15 s"},
        {5, 1, 30, "Message Interval: 15 s"},
        {4, 2, 45, "Message Interval: 15 s"},
        {4, 1, 25, "Message Interval: 12 s"},
        {4, 0, -5, "Message Interval:-5 s"},
    };
    SetModel(60);
    for (const auto& c : cases) {
        w.intake.IntervalSeekState = c.state;
        w.settings.Compress = c.compress;
        w.settings.Message_Interval = c.interval;
        BuildStatusText(w);
        EXPECT_EQ(w.readings.StatusText, c.line);
    }
}

TEST_F(StatusWords, AnRvMessageWithAProfileHasAnAngleLine) {
    const struct {
        std::int16_t model, id;
        const char* lines;
    } cases[] = {
        {20, 15, "Tilt Angle: 02\r"},
        {20, 23, "Tilt Angle: 02\r"},
        {20, 46, "Tilt Angle: 02\r"},
        {20, 16, "Tilt Angle: 02\r"},
        {70, 46, "Elevation Angle: 02\r"},
        {70, 2, ""},
        {20, 2, ""},
        {20, 60, ""},
        {20, 99, ""},
        {20, -1, ""},
    };
    for (const auto& c : cases) {
        SetModel(c.model);
        w.intake.MessageId = c.id;
        w.readings.AngleText = " 02";
        w.readings.StatusDigits[0] = 4;
        EXPECT_EQ(StatusText(), std::string(c.lines) + "Laser Failure (A)\rUnits are FEET")
            << c.model << " id " << c.id;
    }
}

TEST_F(StatusWords, AKnTextGoesFromTroubleToAngleToWindow) {
    SetModel(30);
    DecodeStatusDigits(w, "1000000080C0");
    w.readings.AngleText = "+02";
    w.readings.WindowCondition = "98% (Ok)";
    EXPECT_EQ(StatusText(),
              "voltage failure (A)\rTilt Angle: +02degrees\rWindow Condition: 98% (Ok)\r"
              "Blower is on\rUnits are meters\rManual Blower control");
}

TEST_F(StatusWords, SmallLettersReadLikeCapitals) {
    SetModel(30);
    DecodeStatusDigits(w, "abcdefABCDEF");
    const std::string capitals = AlarmWarningText(w);
    DecodeStatusDigits(w, "ABCDEFabcdef");
    EXPECT_EQ(AlarmWarningText(w), capitals);
    EXPECT_NE(capitals, "");
}

TEST_F(StatusWords, TheStatusWindowAsksOnlyThroughAnOpenPort) {
    for (const bool open : {true, false, true}) {
        w.frmMain.mnuOpenPort.Checked = open;
        BuildStatusText(w);
        EXPECT_EQ(w.frmStatus.cmdViewStatuswnd.Enabled, open);
        EXPECT_EQ(w.frmStatus.Fstatusbutton.Enabled, open);
        EXPECT_EQ(w.frmStatus.Label1.Enabled, open);
        EXPECT_TRUE(w.frmStatus.Command1.Enabled);
    }
}

TEST_F(StatusWords, TheStatusWindowIsPaintedWithTheNewText) {
    SetModel(60);
    std::string painted;
    w.frmStatus.Paint = [&](Workstation& seen) { painted = seen.readings.StatusText; };
    BuildStatusText(w);
    EXPECT_EQ(painted, "") << "a window that is not loaded is not painted";
    w.frmStatus.Loaded = true;
    BuildStatusText(w);
    EXPECT_EQ(painted, "Message Interval: 15 s");
    w.frmStatus.Paint = nullptr;
    EXPECT_NO_THROW(BuildStatusText(w));
}

}  // namespace
}  // namespace cumeron
