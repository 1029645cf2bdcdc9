#include "readings/instant_values.h"

#include <gtest/gtest.h>

#include <vector>

#include "graphs/axes.h"
#include "graphs/graph_history.h"
#include "intake/models.h"
#include "platform/runtime/errors.h"
#include "platform/scripted/scripted_machine.h"
#include "platform/surface.h"
#include "workstation.h"

namespace cumeron {
namespace {

struct Piece {
    long position;  // 1-based
    std::string text;
};

// A frame of blanks with the pieces at their positions.
std::string FrameOf(const std::vector<Piece>& pieces) {
    std::string frame(200, ' ');
    for (const Piece& piece : pieces) {
        frame.replace(static_cast<std::size_t>(piece.position - 1), piece.text.size(), piece.text);
    }
    return frame;
}

class InstantValues : public testing::Test {
protected:
    void SetModel(std::int16_t code, std::int16_t messageId) {
        w.settings.CEILOMETER = code;
        LoadModel(w, LoadedBy::Start);
        w.settings.Message_Interval = 15;
        w.intake.MessageId = messageId;
        SetGraphCaptions(w);
    }
    void Update(const std::vector<Piece>& pieces) { UpdateInstantValues(w, FrameOf(pieces)); }
    std::string Values() {
        const auto& v = w.frmMain.CloudValue;
        return v[0].Caption + "|" + v[1].Caption + "|" + v[2].Caption;
    }
    std::string Labels() {
        const auto& l = w.frmMain.lblCloudtext;
        return l[0].Caption + "|" + l[1].Caption + "|" + l[2].Caption;
    }

    ScriptedMachine machine;
    Workstation w{machine.platform};
};

const std::string Heights = "Cloud Height 1|Cloud Height 2|Cloud Height 3";
const std::string TwoHeights = "Cloud Height 1|Cloud Height 2|Not Used";
const std::string Visibility = "V-Visibility|Highest Signal|Not Used";

TEST_F(InstantValues, AlarmCharacterRulesTheStatusPanel) {
    const struct {
        std::string character;
        const char* text;
        bool red;
    } cases[] = {
        {"0", "Status: OK", false},   {"W", "Status: WARN", true},  {"A", "Status: ALARM", true},
        {"1", "Status: ALARM", true}, {"4", "Status: ALARM", true}, {"5", "Status: ALARM", true},
        {"6", "Status: ALARM", true}, {"2", "Setup altered", true}, {"3", "Status: ?", true},
        {"7", "Status: ?", true},     {"a", "Status: ?", true},     {"w", "Status: ?", true},
        {" ", "Status: ?", true},     {"", "Status: ?", true},
    };
    const struct {
        std::int16_t model;
        long position;
    } models[] = {{30, 14}, {50, 14}, {20, 13}, {70, 13}, {10, 5}, {60, 91}};
    for (const auto& m : models) {
        SetModel(m.model, -1);
        for (const auto& c : cases) {
            Update({{m.position, c.character}});
            EXPECT_EQ(w.frmMain.sbaStatus.Status.Text, c.text) << m.model << " " << c.character;
            EXPECT_EQ(w.frmMain.sbaStatus.Status_Image.Visible, c.red) << c.character;
        }
    }
}

TEST_F(InstantValues, AShortFrameShowsThatNothingIsKnown) {
    for (const std::int16_t code : ModelCodes()) {
        SetModel(code, 15);
        for (const std::string frame : {"", "\x01", "\x01KN02", "\x01KN021015\x02\r\n1"}) {
            UpdateInstantValues(w, frame);
            EXPECT_EQ(w.frmMain.CloudValue[0].Caption, "-----") << code;
        }
        UpdateInstantValues(w, "");
        EXPECT_EQ(w.frmMain.sbaStatus.Status.Text, "Status: ?") << code;
    }
}

TEST_F(InstantValues, UnitAndBatteryStandInTheStatusWord) {
    const struct {
        std::int16_t model;
        Piece word;
        std::int16_t units;
        const char* battery;
    } cases[] = {
        {30, {34, "000000000080"}, 1, ""},
        {50, {34, "000000000070"}, 0, ""},
        {30, {34, "000000001000"}, 0, "Working from Battery"},
        {30, {34, "00000000E000"}, 0, ""},
        {20, {33, "00000100"}, 1, ""},
        {70, {33, "00000E00"}, 0, ""},
        {70, {33, "00000040"}, 0, "Working from Battery"},
        {20, {33, "000000B0"}, 0, ""},
        {60, {78, "m"}, 1, ""},
        {60, {78, "M"}, 0, ""},
        {10, {32, "0000000100"}, 1, "as it was"},
        {10, {32, "0000000E00"}, 0, "as it was"},
    };
    for (const auto& c : cases) {
        SetModel(c.model, -1);
        w.frmMain.sbaStatus.Battery.Text = "as it was";
        Update({c.word});
        EXPECT_EQ(w.settings.Units, c.units) << c.model << " " << c.word.text;
        EXPECT_EQ(w.frmMain.sbaStatus.Battery.Text, c.battery) << c.model << " " << c.word.text;
    }
}

TEST_F(InstantValues, WorkingFromBatteryIsShownInRed) {
    SetModel(30, -1);
    Update({{34, "000000001000"}});
    EXPECT_TRUE(w.frmMain.sbaStatus.Battery_Image.Visible);
    Update({{34, "000000000000"}});
    EXPECT_FALSE(w.frmMain.sbaStatus.Battery_Image.Visible);
}

TEST_F(InstantValues, OfTheTq60NoStatusWordIsRead) {
    SetModel(60, -1);
    Update({{84, "FFFFFFFF"}});
    for (const std::int16_t digit : w.readings.StatusDigits) EXPECT_EQ(digit, 0);
}

TEST_F(InstantValues, WindowFieldGetsItsVerdict) {
    const struct {
        std::string field;
        const char* condition;
    } cases[] = {
        {"000", "00% (Ceilometer Inoperative)"},
        {"020", "20% (Ceilometer Inoperative)"},
        {"021", "21% (Cleaning Required)"},
        {"034", "34% (Cleaning Required)"},
        {"035", "35% (Cleaning Recommended)"},
        {"069", "69% (Cleaning Recommended)"},
        {"070", "70% (Ok)"},
        {"085", "85% (Ok)"},
        {"100", "100% (Ok)"},
        {" 85", " 85% (Ok)"},
        {".5 ", ".5 % (Ceilometer Inoperative)"},
        {"///", "///"},
        {"0//", "//"},
        {"0  ", "  "},
    };
    SetModel(30, 3115);
    for (const auto& c : cases) {
        Update({{70, c.field}});
        EXPECT_EQ(w.readings.WindowCondition, c.condition) << c.field;
    }
}

TEST_F(InstantValues, WindowAndAngleStandBehindASkyConditionBlock) {
    const struct {
        std::int16_t id;
        long extra;
    } cases[] = {{3115, 0},  {3119, 0},  {3120, 37}, {3121, 37}, {3125, 37},
                 {3126, 42}, {3128, 37}, {3129, 37}, {3130, 0},  {-1, 0}};
    for (const auto& c : cases) {
        SetModel(50, c.id);
        Update({{70 + c.extra, "085"}, {74 + c.extra, "+07"}});
        EXPECT_EQ(w.readings.WindowCondition, "85% (Ok)") << c.id;
        EXPECT_EQ(w.readings.AngleText, "+07") << c.id;
    }
}

TEST_F(InstantValues, OnlyTheKnFamilyTellsAWindowCondition) {
    for (const std::int16_t code : ModelCodes()) {
        if (code == 30 || code == 50) continue;
        SetModel(code, 15);
        w.readings.WindowCondition = "as it was";
        Update({{70, "085"}});
        EXPECT_EQ(w.readings.WindowCondition, "as it was") << code;
    }
}

TEST_F(InstantValues, AWindowFieldTooLargeToCountIsAnOverflow) {
    SetModel(30, 3115);
    try {
        Update({{70, "9E9"}});
        ADD_FAILURE();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, 6);
    }
}

TEST_F(InstantValues, AngleOfTheRvFamilyBeginsEarlierWithTwoDigits) {
    const struct {
        std::string field;  // from the place before the field on
        const char* text;
        std::int16_t value;
    } cases[] = {
        {" +02 ", "+02", 2},  {"+12  ", "+12", 12},  {"-09  ", "09 ", 9},
        {" -9  ", "-9 ", -9}, {" -10 ", " -1", -10}, {" 2.9 ", "2.9", 2},
        {" -.5 ", "-.5", -1}, {"  10 ", "  1", 10},  {"  9  ", " 9 ", 9},
    };
    SetModel(20, 15);
    for (const auto& c : cases) {
        Update({{66, c.field}});
        EXPECT_EQ(w.readings.AngleText, c.text) << c.field;
        EXPECT_EQ(w.readings.AngleValue, c.value) << c.field;
    }
}

TEST_F(InstantValues, AngleOfTheKnFamilyStandsInItsField) {
    SetModel(30, 3115);
    Update({{73, "x-14"}});
    EXPECT_EQ(w.readings.AngleText, "-14");
    EXPECT_EQ(w.readings.AngleValue, -14);
}

TEST_F(InstantValues, AnAngleThatIsNoNumberKeepsTheValueOnly) {
    SetModel(20, 15);
    Update({{66, " +05 "}});
    Update({{66, "a///"}});
    EXPECT_EQ(w.readings.AngleText, "a//");
    EXPECT_EQ(w.readings.AngleValue, 5);
}

TEST_F(InstantValues, OnlySomeMessagesCarryAnAngle) {
    const struct {
        std::int16_t model, id;
        bool angle;
    } cases[] = {
        {20, 15, true},  {20, 23, true},  {20, 46, true},   {20, 16, true},   {70, 16, true},
        {20, 2, false},  {20, 60, false}, {20, 99, false},  {20, -1, false},  {10, 3, false},
        {60, 38, false}, {30, -1, true},  {30, 3115, true}, {50, 3126, true}, {10, 15, true},
    };
    for (const auto& c : cases) {
        SetModel(c.model, c.id);
        w.readings.AngleText = "as it was";
        w.readings.Tilted = 0;
        Update({{67, "+20"}, {74, "+20"}, {116, "+20"}});
        EXPECT_EQ(w.readings.AngleText != "as it was", c.angle) << c.model << " id " << c.id;
        if (!c.angle) {
            EXPECT_EQ(w.readings.Tilted, 0) << c.model << " id " << c.id;
        }
    }
}

TEST_F(InstantValues, TiltBeginsFourteenDegreesFromTheVertical) {
    const struct {
        std::int16_t model, id;
        Piece angle;
        std::int16_t tilted;
    } cases[] = {
        {30, 3115, {74, "+13"}, 0}, {30, 3115, {74, "+14"}, 1}, {30, 3115, {74, "-13"}, 0},
        {30, 3115, {74, "-14"}, 1}, {20, 15, {67, "+14"}, 1},   {20, 15, {67, "+13"}, 0},
        {70, 15, {67, "+76"}, 1},   {70, 15, {67, "+77"}, 0},   {70, 15, {67, "103"}, 0},
        {70, 15, {67, "104"}, 1},
    };
    for (const auto& c : cases) {
        SetModel(c.model, c.id);
        Update({c.angle});
        EXPECT_EQ(w.readings.Tilted, c.tilted) << c.model << " " << c.angle.text;
        EXPECT_EQ(w.frmMain.imgYaxisdisFT.Visible, c.tilted == 1) << "captions follow at once";
    }
}

TEST_F(InstantValues, ATiltThatStaysTouchesNoCaption) {
    SetModel(30, 3115);
    Update({{74, "+20"}});
    w.frmMain.lblXaxis.Caption = "mark";
    Update({{74, "+30"}});
    EXPECT_EQ(w.frmMain.lblXaxis.Caption, "mark");
}

TEST_F(InstantValues, AChangeOfUnitTakesEverythingAlong) {
    SetModel(30, 3115);
    w.settings.Units = 1;
    SetGraphCaptions(w);
    w.settings.Clouds_Y_User_Defined = w.settings.Backscatter_Y_User_Defined = -1;
    CreateHistory(w, 10);
    w.graphs.GraphHistory[1].CloudValue[0] = "00300";
    w.frmMain.fraValues.Left = -1;
    Update({{34, "000000000000"}});
    EXPECT_EQ(w.settings.Units, 0);
    EXPECT_EQ(w.settings.Clouds_Y_User_Defined, 0);
    EXPECT_EQ(w.settings.Backscatter_Y_User_Defined, 0);
    EXPECT_EQ(w.graphs.UnitLabel, "[ft]");
    EXPECT_EQ(w.frmMain.fraValues.Caption, "Instant Values [ft]");
    EXPECT_EQ(w.graphs.GraphHistory[1].CloudValue[0], "01000");
    EXPECT_NE(w.frmMain.fraValues.Left, -1) << "the window is laid out anew";
}

TEST_F(InstantValues, AnUnchangedUnitOnlyEndsTheDisplayOfLastValues) {
    SetModel(30, 3115);
    w.settings.Clouds_Y_User_Defined = w.settings.Backscatter_Y_User_Defined = -1;
    w.frmMain.fraValues.Caption = "Last Values [ft]";
    w.frmMain.fraValues.ForeColor = QBColor(4);
    w.frmMain.lblXaxis.Caption = "mark";
    Update({{34, "000000000000"}});
    EXPECT_EQ(w.frmMain.fraValues.Caption, "Instant Values [ft]");
    EXPECT_EQ(w.frmMain.fraValues.ForeColor, QBColor(0));
    EXPECT_EQ(w.settings.Clouds_Y_User_Defined, -1);
    EXPECT_EQ(w.settings.Backscatter_Y_User_Defined, -1);
    EXPECT_EQ(w.frmMain.lblXaxis.Caption, "mark");
}

TEST_F(InstantValues, StatusTextShowsAngleAndWindowOfTheMessageBefore) {
    SetModel(30, 3115);
    w.intake.IntervalSeekState = 4;
    Update({{34, "000000000000"}, {70, "085"}, {74, "+02"}});
    EXPECT_EQ(w.readings.StatusText,
              "Message Interval: 15 s\rTilt Angle: degrees\rWindow Condition: \rUnits are feet");
    Update({{34, "000000000000"}, {70, "060"}, {74, "+03"}});
    EXPECT_EQ(w.readings.StatusText,
              "Message Interval: 15 s\rTilt Angle: +02degrees\rWindow Condition: 85% (Ok)\r"
              "Units are feet");
}

TEST_F(InstantValues, CloudFieldsAreShownAsTheyStandWhenTheyAreNumbers) {
    const struct {
        std::string field;
        const char* shown;
    } cases[] = {
        {"01230", "01230"}, {"  123", "  123"}, {"123  ", "123  "},
        {"00000", "00000"}, {"/////", "-----"}, {"     ", "-----"},
        {"12 30", "-----"}, {"012A0", "-----"}, {"-0012", "-0012"},
    };
    SetModel(30, 3115);
    for (const auto& c : cases) {
        Update({{16, c.field}, {22, c.field}, {28, c.field}});
        const std::string shown = c.shown;
        EXPECT_EQ(Values(), shown + "|" + shown + "|" + shown) << c.field;
    }
}

TEST_F(InstantValues, EachModelHasItsCloudFieldsAndLabels) {
    const struct {
        const char* what;
        std::int16_t model;
        std::vector<Piece> pieces;
        std::string values, labels;
    } cases[] = {
        {"KN",
         30,
         {{13, "3"}, {16, "00001"}, {22, "00002"}, {28, "00003"}},
         "00001|00002|00003",
         Heights},
        {"KN, visibility",
         50,
         {{13, "4"}, {16, "00001"}, {22, "00002"}, {28, "00003"}},
         "00001|00002|",
         Visibility},
        {"RV",
         70,
         {{12, "3"}, {15, "00001"}, {21, "00002"}, {27, "00003"}},
         "00001|00002|00003",
         Heights},
        {"RV, visibility",
         20,
         {{12, "4"}, {15, "00001"}, {21, "00002"}, {27, "00003"}},
         "00001|00002|",
         Visibility},
        {"RV10X",
         10,
         {{4, "2"}, {8, "00001"}, {20, "00002"}, {14, "00003"}},
         "00001|00002|",
         TwoHeights},
        {"RV10X, 4 is no visibility",
         10,
         {{4, "4"}, {8, "00001"}, {20, "00002"}, {14, "00003"}},
         "00001|00002|",
         TwoHeights},
        {"RV10X, visibility",
         10,
         {{4, "3"}, {8, "00001"}, {20, "00002"}, {14, "00003"}},
         "00001|00003|",
         Visibility},
        {"RV10X, visibility without a signal",
         10,
         {{4, "3"}, {8, "00001"}, {14, "/////"}},
         "00001|/////|",
         Visibility},
        {"TQ60",
         60,
         {{28, "00001"}, {34, "00002"}, {40, "00003"}, {61, "00004"}, {67, "00005"}},
         "00001|00002|00003",
         Heights},
        {"TQ60, second pair",
         60,
         {{28, "/////"}, {34, "00002"}, {61, "00004"}, {67, "00005"}},
         "00004|00005|",
         Visibility},
        {"TQ60, second pair half",
         60,
         {{34, "00002"}, {61, "00004"}, {67, "/////"}},
         "00004|-----|",
         Visibility},
        {"TQ60, neither", 60, {{34, "00002"}, {67, "00005"}}, "-----|00002|-----", Heights},
        {"TQ60, visibility",
         60,
         {{12, "4"}, {28, "00001"}, {34, "00002"}, {40, "00003"}},
         "00001|00002|",
         Visibility},
        {"only the TQ60 has a second pair",
         30,
         {{16, "/////"}, {61, "00004"}, {67, "00005"}},
         "-----|-----|-----",
         Heights},
    };
    for (const auto& c : cases) {
        SetModel(c.model, -1);
        Update(c.pieces);
        EXPECT_EQ(Values(), c.values) << c.what;
        EXPECT_EQ(Labels(), c.labels) << c.what;
    }
}

TEST_F(InstantValues, ClearingEmptiesThePanel) {
    for (const std::int16_t code : ModelCodes()) {
        SetModel(code, -1);
        Update({{12, "4"}, {13, "4"}, {15, "00001"}, {16, "00001"}, {28, "00001"}});
        w.readings.StatusDigits.fill(7);
        w.frmMain.sbaStatus.Status_Image.Visible = true;
        ClearInstantValues(w);
        EXPECT_EQ(Values(), "||") << code;
        EXPECT_EQ(Labels(), Heights) << code;
        EXPECT_EQ(w.frmMain.sbaStatus.Status.Text, "Status:    OK") << code;
        EXPECT_FALSE(w.frmMain.sbaStatus.Status_Image.Visible) << code;
        for (std::size_t i = 0; i < 12; ++i) {
            const bool inWord = i < static_cast<std::size_t>(w.model.statusDigits);
            EXPECT_EQ(w.readings.StatusDigits[i], inWord ? 0 : 7) << code << " digit " << i;
        }
    }
}

TEST_F(InstantValues, ClearingThemForgetsTheSkyCondition) {
    for (const bool shown : {false, true}) {
        SetModel(30, 3125);
        w.frmMain.mnuSkyCond.Checked = shown;
        w.sky.SkyValid = 1;
        w.frmMain.lblSkyCond[3].Caption = "old";
        w.frmSkyCond.lblSkyCond[9].Caption = "old";
        w.frmSkyCond.CloudValue[2].Caption = "old";
        ClearInstantValues(w);
        EXPECT_EQ(w.sky.SkyValid, 0);
        EXPECT_EQ(w.frmMain.lblSkyCond[3].Caption, "");
        EXPECT_EQ(w.frmSkyCond.lblSkyCond[9].Caption, shown ? "" : "old");
        EXPECT_EQ(w.frmSkyCond.CloudValue[2].Caption, shown ? "" : "old");
    }
}

TEST_F(InstantValues, ASkyConditionIsTakenAndPassedOnToItsWindowWhileThatIsShown) {
    SetModel(30, 3125);
    const Piece block = {156, "  3 0450  5 1200  0 ////  8 2500   "};
    Update({block});
    EXPECT_EQ(w.frmMain.lblSkyCond[7].Caption, " 2500");
    EXPECT_EQ(w.frmSkyCond.lblSkyCond[7].Caption, "");
    w.frmMain.mnuSkyCond.Checked = true;
    Update({block});
    EXPECT_EQ(w.frmSkyCond.lblSkyCond[7].Caption, " 2500");
    w.intake.MessageId = 3115;
    Update({block});
    EXPECT_EQ(w.frmMain.lblSkyCond[7].Caption, "");
    EXPECT_EQ(w.frmSkyCond.lblSkyCond[7].Caption, "");
}

}  // namespace
}  // namespace cumeron
