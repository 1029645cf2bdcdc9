#include "intake/classify.h"

#include <gtest/gtest.h>

#include "intake/messages.h"
#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"

namespace cumeron {
namespace {

// What stands in FrameText in front of a Payload of the RV and KN families, and of TQ60.
constexpr std::size_t BeforePayload = 86;
constexpr std::size_t BeforePayloadTQ60 = 5;

std::string RVText(const std::string& number, std::size_t payloadLength) {
    return Padded(" RVA10" + number, BeforePayload + payloadLength);
}

std::string KNText(const std::string& number, std::size_t payloadLength) {
    return Padded(" KN0210" + number, BeforePayload + payloadLength);
}

// At 54 + shift the range resolution.
std::string KNTextWithScale(const std::string& number, std::size_t shift,
                            const std::string& resolution) {
    std::string text = KNText(number, 20);
    text.replace(53 + shift, resolution.size(), resolution);
    return text;
}

struct Case {
    std::string frameText;
    int id;
    const char* literal;
};

void ExpectCases(int model, const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.frameText.substr(0, 12) + " length " + std::to_string(c.frameText.size()));
        Station station(model);
        std::string payload;
        EXPECT_EQ(ClassifyMessage(station.w, c.frameText, payload), c.id);
        EXPECT_EQ(station.w.frmMain.sbaStatus.Errors.Text, c.literal);
        EXPECT_EQ(station.w.frmMain.sbaStatus.Errors_Image.Visible,
                  c.id == -1 && payload.size() != 3246);
    }
}

TEST(ClassifyMessage, TellsTheMessagesOfRV) {
    for (const int model : {70, 20}) {
        ExpectCases(model, {
                               {RVText("73", 1137), 16, "Msg 7, No Errors"},
                               {RVText("23", 1137), -1, "Not Valid Msg"},
                               {RVText("23", 1107), 15, "Msg2, No Errors"},
                               {RVText("73", 1107), -1, "Not Valid Msg"},
                               {RVText("73", 1131), 16, "Msg 7, No SkyC"},
                               {RVText("24", 1131), -1, "Not Valid Msg"},
                               {RVText("24", 1659), 23, "Msg 2, No Errors"},
                               {RVText("10", 1659), -1, "Not Valid Msg"},
                               {RVText("28", 3246), 46, "Msg 2, No Errors"},
                               {RVText("10", 3246), -1, "Not Valid Msg"},
                               {RVText("10", 0), 2, "Msg 1"},
                               {RVText("60", 30), 60, "Msg 6"},
                               {RVText("61", 1136), 61, "Msg 61"},
                               {RVText("33", 0), 2, "Msg 3"},
                               {RVText("S0", 0), 2, "MSG Status"},
                               {RVText("73", 1136), -1, "Not Valid Msg"},
                               {RVText("34", 0), -1, "Not Valid Msg"},
                               {RVText("R0", 1137), 99, "RAW_MESSAGE"},
                               {RVText("R", 0), 99, "RAW_MESSAGE"},
                               {" RVA10", -1, "Not Valid Msg"},
                               {"", -1, "Not Valid Msg"},
                           });
    }
}

TEST(ClassifyMessage, TellsTheMessagesOfKN) {
    std::string ta8 = KNText("", 0);
    ta8.replace(3, 5, "TA  8");
    for (const int model : {30, 50}) {
        ExpectCases(model, {
                               {KNText("11", 3870), 3111, "Msg11, No Errors"},
                               {KNText("14", 3870), 3114, "Msg14, No Errors"},
                               {KNText("15", 3870), -1, "Not Valid Msg"},
                               {KNText("12", 1945), 3112, "Msg12, No Errors"},
                               {KNText("13", 7520), 3113, "Msg13, No Errors"},
                               {KNText("16", 7720), 3116, "Msg16, No Errors"},
                               {KNText("21", 3907), 3121, "Msg21, No Errors"},
                               {KNText("24", 3907), 3124, "Msg24, No Errors"},
                               {KNText("22", 1982), 3122, "Msg22, No Errors"},
                               {KNText("23", 7557), 3123, "Msg23, No Errors"},
                               {KNText("26", 7762), 3126, "Msg26, No Errors"},
                               {KNText("26", 7761), -1, "Not Valid Msg"},
                               {KNText("15", 7761), 3115, "Msg15, No Errors"},
                               {KNText("18", 0), 3118, "Msg18, No Errors"},
                               {KNText("25", 3870), 3125, "Msg25, No Errors"},
                               {KNText("28", 0), 3128, "Msg28, No Errors"},
                               {KNText("99", 0), -1, "Not Valid Msg"},
                               {Padded(" KNRD", BeforePayload + 2053), 40, "RD, No Errors"},
                               {Padded(" KNTA", BeforePayload + 2053), -1, "Not Valid Msg"},
                               {Padded(" KNRD", BeforePayload), -1, "Not Valid Msg"},
                               {Padded(" KNTA08", BeforePayload), 38, "TA, No Errors"},
                               {Padded(" KNTA09", BeforePayload), 39, "RD, No Errors"},
                               {Padded(" KNTA0815", BeforePayload), 3115, "Msg15, No Errors"},
                               {ta8, 39, "RD, No Errors"},
                               {"", -1, "Not Valid Msg"},
                           });
    }
}

TEST(ClassifyMessage, KnowsNoOtherNumberForAKnownLength) {
    for (const std::size_t length : {3907, 3870, 2053, 1945, 1982, 7520, 7557, 7720, 7762}) {
        SCOPED_TRACE(length);
        Station station(30);
        std::string payload;
        EXPECT_EQ(ClassifyMessage(station.w, KNText("18", length), payload), -1);
        EXPECT_EQ(payload.size(), length);
        EXPECT_TRUE(station.w.frmMain.sbaStatus.Errors_Image.Visible);
    }
}

TEST(ClassifyMessage, TellsTheMessagesOfTQ60) {
    ExpectCases(60, {
                        {Padded(" X0RD", BeforePayloadTQ60 + 2053), 40, "RD, No Errors"},
                        {Padded(" X0TA", BeforePayloadTQ60 + 2053), -1, "Not Valid Msg"},
                        {Padded(" X0TA08", 300), 38, "TA, No Errors"},
                        {Padded(" X0TA00", 300), 39, "RD, No Errors"},
                        {Padded(" X0TB08", 300), -1, "Not Valid Msg"},
                        {Padded(" X0TB0015", 300), 3115, "Msg15, No Errors"},
                        {Padded(" X0TB0011", BeforePayloadTQ60 + 3870), 3111, "Msg11, No Errors"},
                    });
}

TEST(ClassifyMessage, TellsTheMessagesOfRV10XByLengthAlone) {
    const auto text = [](std::size_t length) { return Padded(" \x02", length); };
    ExpectCases(10, {{text(41), -1, "Not Valid Msg"},
                     {text(42), -1, "Not Valid Msg"},
                     {text(111), -1, "Not Valid Msg"},
                     {text(112), 3, "Msg3, No Errors"},
                     {text(113), 3, "Msg3, No Errors"},
                     {text(114), -1, "Not Valid Msg"},
                     {text(141), -1, "Not Valid Msg"},
                     {text(142), 4, "Msg6, No Errors"},
                     {text(143), 4, "Msg6, No Errors"},
                     {text(144), -1, "Not Valid Msg"},
                     {text(400), -1, "Not Valid Msg"},
                     {text(401), 99, "RAW_MESSAGE"},
                     {Padded(" RV", 112), -1, "Not Valid Msg"},
                     {"", -1, "Not Valid Msg"}});
}

TEST(ClassifyMessage, CutsThePayload) {
    std::string numbered = Padded(" KN021015", 100);
    for (std::size_t i = 9; i < numbered.size(); ++i) numbered[i] = static_cast<char>('!' + i % 90);
    const auto as = [&](std::string start, std::size_t length) {
        return start + numbered.substr(start.size(), length - start.size());
    };
    std::string longTQ60 = Padded(" X0TB00", 201);
    const struct {
        const char* what;
        int model, start;
        std::string frameText, payload;
    } cases[] = {
        {"from the start of the information", 30, 87, numbered, numbered.substr(86)},
        {"one character", 30, 99, as(" KN021015", 100), numbered.substr(98)},
        {"nothing behind the start", 30, 100, numbered, ""},
        {"RV likewise", 70, 87, as(" RVA1010", 100), numbered.substr(86)},
        {"KN 25 has none", 30, 87, as(" KN021025", 100), ""},
        {"RV with 25 there has one", 70, 87, as(" RVA10125", 100), numbered.substr(86)},
        {"a start of 0 gives nothing", 30, 0, numbered, ""},
        {"TQ60 of 201 characters", 60, 87, longTQ60, longTQ60.substr(5)},
        {"TQ60 of 200 characters", 60, 87, longTQ60.substr(0, 200), ""},
        {"RV10X from 42 on", 10, 87, Padded(" \x02", 112), std::string(71, ' ')},
        {"RV10X raw", 10, 87, Padded(" \x02", 401), std::string(360, ' ')},
        {"RV10X of no message", 10, 87, Padded(" \x02", 120), ""},
    };
    for (const auto& c : cases) {
        Station station(c.model);
        station.w.settings.Start_Of_Information = static_cast<std::int16_t>(c.start);
        std::string payload = "old";
        ClassifyMessage(station.w, c.frameText, payload);
        EXPECT_EQ(payload, c.payload) << c.what;
    }
}

TEST(ClassifyMessage, CountsLengthsFromTheStartOfTheInformation) {
    Station station(20);
    station.w.settings.Start_Of_Information = 88;
    std::string payload;
    EXPECT_EQ(ClassifyMessage(station.w, RVText("23", 1107), payload), -1);
    EXPECT_EQ(ClassifyMessage(station.w, RVText("23", 1108), payload), 15);
}

TEST(ProfileScale, ComesFromTheRangeResolutionOfKN) {
    const float third = 30.0F / 7.0F;
    const struct {
        const char* what;
        std::string frameText;
        double scale;
    } cases[] = {
        {"10 m", KNTextWithScale("15", 0, "10"), 3},
        {"5 m", KNTextWithScale("15", 0, "05"), 6},
        {"with a blank", KNTextWithScale("15", 0, " 5"), 6},
        {"single precision", KNTextWithScale("15", 0, "07"), static_cast<double>(third)},
        {"no number", KNTextWithScale("15", 0, "1x"), 1},
        {"behind a sky condition", KNTextWithScale("28", 37, "20"), 1.5},
        {"a sky condition of five", KNTextWithScale("26", 42, "20"), 1},
        {"number 25 has no shift", KNTextWithScale("25", 0, "20"), 1.5},
        {"not valid", KNTextWithScale("99", 0, "10"), 1},
        {"not valid with 00", KNTextWithScale("99", 0, "00"), 1},
        {"short", " KN021015", 1},
    };
    for (const auto& c : cases) {
        Station station(30);
        station.w.intake.ProfileScale = 8;
        std::string payload;
        ClassifyMessage(station.w, c.frameText, payload);
        EXPECT_EQ(station.w.intake.ProfileScale, c.scale) << c.what;
    }
}

TEST(ProfileScale, OfFiveSkyRecordsStandsFurtherBehind) {
    Station station(30);
    std::string text = KNText("26", 7762);
    text.replace(53 + 42, 2, "20");
    std::string payload;
    EXPECT_EQ(ClassifyMessage(station.w, text, payload), 3126);
    EXPECT_EQ(station.w.intake.ProfileScale, 1.5);
}

TEST(ProfileScale, RaisesDivisionByZeroForAResolutionOfNothing) {
    Station station(30);
    std::string payload;
    try {
        ClassifyMessage(station.w, KNTextWithScale("15", 0, "00"), payload);
        FAIL() << "30 / 0";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, 11);
    }
}

TEST(ProfileScale, ComesFromTheDigitOfTheOthers) {
    const auto rv = [](const char* number, char digit, std::size_t payloadLength = 0) {
        std::string text = RVText(number, payloadLength);
        text[79] = digit;
        return text;
    };
    const struct {
        const char* what;
        int model;
        std::string frameText;
        double scale;
    } cases[] = {
        {"RV20X 2", 20, rv("10", '2'), 2},
        {"RV20X 9", 20, rv("10", '9'), 9},
        {"RV20X 0", 20, rv("10", '0'), 1},
        {"RV20X 5", 20, rv("10", '5'), 1},
        {"RV20X no digit", 20, rv("10", ' '), 8},
        {"RV20X not valid", 20, rv("34", '2'), 8},
        {"RV20X raw", 20, rv("R0", '2'), 8},
        {"RV20X short", 20, " RVA1010", 8},
        {"RV70X 2", 70, rv("10", '2'), 1},
        {"RV70X no digit", 70, rv("10", 'x'), 8},
        {"RV10X 2", 10, Padded(" \x02", 79) + "2" + std::string(32, ' '), 1},
        {"RV10X no digit", 10, Padded(" \x02", 112), 8},
        {"RV10X raw with a digit", 10, Padded(" \x02", 79) + "2" + std::string(330, ' '), 1},
        {"TQ60 2", 60, Padded(" X0TA08", 79) + "2", 4},
        {"TQ60 not valid", 60, " X0", 4},
    };
    for (const auto& c : cases) {
        Station station(c.model);
        station.w.intake.ProfileScale = 8;
        std::string payload;
        ClassifyMessage(station.w, c.frameText, payload);
        EXPECT_EQ(station.w.intake.ProfileScale, c.scale) << c.what;
    }
}

TEST(ClassifyMessage, ShowsCloudHitsForAMessageWithoutAProfile) {
    const struct {
        int model;
        std::string frameText;
        bool forced;
    } cases[] = {
        {70, RVText("10", 0), true},         {70, RVText("60", 0), true},
        {70, RVText("61", 0), true},         {70, RVText("33", 0), true},
        {70, RVText("S0", 0), true},         {70, RVText("34", 0), false},
        {70, RVText("R0", 0), false},        {70, RVText("73", 1137), false},
        {70, RVText("23", 1107), false},     {70, RVText("73", 1131), false},
        {70, RVText("24", 1659), false},     {70, RVText("28", 3246), false},
        {30, KNText("15", 0), true},         {30, KNText("18", 0), true},
        {30, KNText("25", 0), true},         {30, KNText("28", 0), true},
        {30, KNText("11", 3870), false},     {30, KNText("26", 7762), false},
        {30, KNText("99", 0), false},        {60, Padded(" X0TA08", 300), false},
        {60, Padded(" X0TA00", 300), false}, {60, Padded(" X0RD", BeforePayloadTQ60 + 2053), false},
        {10, Padded(" \x02", 112), false},   {10, Padded(" \x02", 142), false},
        {10, Padded(" \x02", 401), false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.frameText.substr(0, 9) + " length " + std::to_string(c.frameText.size()));
        Station station(c.model);
        station.w.frmMain.mnuPoints.Checked = true;
        station.w.frmMain.mnuCloudhit.Checked = false;
        std::string payload;
        ClassifyMessage(station.w, c.frameText, payload);
        EXPECT_EQ(station.w.frmMain.mnuCloudhit.Checked, c.forced);
        EXPECT_EQ(station.w.frmMain.mnuPoints.Checked, !c.forced);
    }
}

TEST(ClassifyMessage, LeavesTheCloudHitViewAlone) {
    Station station(30);
    station.w.frmMain.mnuCloudhit.Checked = true;
    station.w.frmMain.mnuSplitScreen.Checked = true;
    std::string payload;
    ClassifyMessage(station.w, KNText("15", 0), payload);
    EXPECT_TRUE(station.w.frmMain.mnuSplitScreen.Checked);
}

}  // namespace
}  // namespace cumeron
