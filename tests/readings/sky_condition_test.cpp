#include "readings/sky_condition.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/runtime/text.h"
#include "platform/scripted/scripted_machine.h"
#include "workstation.h"

namespace cumeron {
namespace {

// "3 0450|5 1200|": amounts and heights of the layers that are shown.
std::string Layers(const SkyState& sky) {
    std::string text;
    for (std::size_t i = 0; i < SkyLayers; ++i) {
        text += std::to_string(sky.SkyAmounts[i]) + sky.SkyHeights[i] + "|";
    }
    return text;
}

struct SkyConditionTest : testing::Test {
    SkyConditionTest() {
        w.settings.CEILOMETER = 30;
        LoadModel(w, LoadedBy::Start);
    }
    void Show(std::string_view block, std::int16_t look, int records = 4) {
        w.settings.Cloud_Amount = look;
        ParseSkyCondition(w.sky, block, records, 4);
        ShowSkyCondition(w);
    }
    std::string Captions() {
        std::string text;
        for (const Label& label : w.frmMain.lblSkyCond) text += label.Caption + "|";
        return text;
    }
    // The numbers of the pictures, "2121".
    std::string Symbols() {
        std::string text;
        for (const Image& image : w.frmMain.imgSky) text += image.Picture.at(11);
        return text;
    }
    void Dirty() {
        for (Label& label : w.frmMain.lblSkyCond) label.Caption = "old";
        for (Image& image : w.frmMain.imgSky) image.Picture = w.frmMain.imgSkyCond[8].Picture;
    }

    ScriptedMachine machine;
    Workstation w{machine.platform};
};

TEST(SkyAmountText, EveryAmountHasItsWordOrNone) {
    const struct {
        std::int16_t amount;
        const char* text;
        const char* onRv10x;
    } cases[] = {{-3, "", ""},      {-2, "Miss", "Miss"}, {-1, "Miss", "Na"},
                 {0, "", ""},       {1, "FEW", "FEW"},    {2, "FEW", "FEW"},
                 {3, "SCT", "SCT"}, {4, "SCT", "SCT"},    {5, "BKN", "BKN"},
                 {6, "BKN", "BKN"}, {7, "BKN", "BKN"},    {8, "OVC", "OVC"},
                 {9, "VV", "VV"},   {10, "", ""},         {98, "", ""},
                 {99, "Na", "Na"},  {100, "", ""},        {UnreadableAmount, "", ""}};
    for (const auto& c : cases) {
        for (const Family family : {Family::KN, Family::RV, Family::TQ60}) {
            EXPECT_EQ(SkyAmountText(c.amount, family), c.text) << c.amount;
        }
        EXPECT_EQ(SkyAmountText(c.amount, Family::RV10X), c.onRv10x) << c.amount;
    }
}

TEST(ParseSkyCondition, TakesEachRecord) {
    const std::string unread = std::to_string(UnreadableAmount), none = unread + " ";
    const struct {
        const char* what;
        std::string block;
        int records, digits;
        std::string layers;
    } cases[] = {
        {"four records", "  3 0450  5 1200  0 ////  8 2500   ", 3, 4,
         "3 0450|5 1200|0 ////|8 2500|0 ////|"},
        {"five records", "  1 0100  2 0200  3 0300  4 0400  9 0500", 4, 4,
         "1 0100|2 0200|3 0300|4 0400|9 0500|"},
        {"three digits", "  3 045  5 120  7 200  0 ///\r\n", 3, 3,
         "3 045|5 120|7 200|0 ///|0 ///|"},
        {"no data", "/// //// /// //// /// //// /// ////", 3, 4,
         "-1 ////|0 ////|0 ////|0 ////|0 ////|"},
        {"no data, three digits and five records", std::string(40, '/'), 4, 3,
         "-1 ///|0 ///|0 ///|0 ///|0 ///|"},
        {"the second record tells", "  3 0450/// 1200  2 2000  8 2500", 3, 4,
         "-1 ////|0 ////|0 ////|0 ////|0 ////|"},
        {"the first record is no number", "/// 0450  5 1200  0 ////  8 2500", 3, 4,
         none + "0450|5 1200|0 ////|8 2500|0 ////|"},
        {"a later record is no number", "  3 0450  5 1200 x4 2000  8 2500", 3, 4,
         "3 0450|5 1200|" + none + "2000|8 2500|0 ////|"},
        {"more than a number can be", "  3 0450  5 12009E9 20009D9 2500", 3, 4,
         "3 0450|5 1200|" + none + "2000|" + none + "2500|0 ////|"},
        {"numbers of all kinds", "  3 0450-9. 12001E1 20002   2500", 3, 4,
         "3 0450|-9 1200|10 2000|2 2500|0 ////|"},
        {"cut short", "  3 0450  5 12", 3, 4, "3 0450|5 12|" + unread + "|" + unread + "|0 ////|"},
        {"empty", "", 3, 4, "-1 ////|0 ////|0 ////|0 ////|0 ////|"},
    };
    for (const auto& c : cases) {
        SkyState sky;
        sky.SkyAmounts.fill(7);
        sky.SkyHeights.fill("old");
        ParseSkyCondition(sky, c.block, c.records, c.digits);
        EXPECT_EQ(sky.SkyValid, 1) << c.what;
        EXPECT_EQ(Layers(sky), c.layers) << c.what;
    }
}

TEST_F(SkyConditionTest, AmountsLookAsTheSettingWantsThem) {
    const std::string block = "  2 0450 99 1200  0 //// -2 9000  9 0100";
    const struct {
        std::string block;
        std::int16_t look;
        const char* captions;
    } cases[] = {
        {block, AmountNumbers, "2| 0450|99| 1200|||-2| 9000|9| 0100|"},
        {block, AmountTexts, "FEW| 0450|Na| 1200|||Miss| 9000|VV| 0100|"},
        {block, AmountSymbols, "2| 0450|99| 1200|||-2| 9000|9| 0100|"},
        {block, 3, "2| 0450|99| 1200|||-2| 9000|9| 0100|"},
        {std::string(40, '/'), AmountNumbers, "-1||||||||||"},
        {std::string(40, '/'), AmountTexts, "Miss||||||||||"},
        {"xxx 0450  5 1200  7 ////  0 2000  8 2500", AmountNumbers, "||5| 1200|7||| 2000|8| 2500|"},
        {"xxx 0450  5 1200  7 ////  0 2000  8 2500", AmountTexts,
         "||BKN| 1200|BKN||| 2000|OVC| 2500|"},
    };
    for (const auto& c : cases) {
        Dirty();
        Show(c.block, c.look);
        EXPECT_EQ(Captions(), c.captions) << c.block << c.look;
    }
}

TEST_F(SkyConditionTest, ABlockWithoutDataReadsNotAvailableOnTheRv10x) {
    w.settings.CEILOMETER = 10;
    LoadModel(w, LoadedBy::Start);
    Show("////", AmountTexts);
    EXPECT_EQ(w.frmMain.lblSkyCond[0].Caption, "Na");
}

TEST_F(SkyConditionTest, ThreeSymbolsStandForFiveLayers) {
    const auto block = [](std::vector<int> amounts) {
        std::string text;
        for (const int amount : amounts) text += PadLeft(std::to_string(amount), 3, ' ') + " 0100";
        return text;
    };
    const struct {
        const char* what;
        std::string block;
        const char* symbols;  // element 0 is left alone, an 8
    } cases[] = {
        {"the upper of a pair", block({3, 5, 6, 7, 9}), "8579"},
        {"the lower without an upper", block({3, 0, 6, 0, 0}), "8362"},
        {"two oktas", block({2, 2, 2, 2, 2}), "8111"},
        {"two oktas below", block({2, 0, 2, 0, 1}), "8111"},
        {"a clear sky", block({0, 0, 0, 0, 0}), "8022"},
        {"outside", block({10, 99, -2, 12, 10}), "8222"},
        {"obscured", block({9, 0, 0, 0, 0}), "8922"},
        {"no data", std::string(40, '/'), "8222"},
        {"no number", "x", "8222"},
        {"first no number", "xxx 0100  0 0100  0 0100  0 0100  0 0100", "8222"},
    };
    for (const auto& c : cases) {
        Dirty();
        Show(c.block, AmountSymbols);
        EXPECT_EQ(Symbols(), c.symbols) << c.what;
    }
    for (const std::int16_t look : {AmountNumbers, AmountTexts}) {
        Dirty();
        Show(cases[0].block, look);
        EXPECT_EQ(Symbols(), "8888") << look;
    }
}

TEST_F(SkyConditionTest, WithoutABlockTheFrameIsEmptyButForTheSymbolOfTheHighestLayer) {
    Dirty();
    w.sky.SkyValid = 0;
    ShowSkyCondition(w);
    EXPECT_EQ(Captions(), "||||||||||");
    EXPECT_EQ(Symbols(), "2228");
}

TEST_F(SkyConditionTest, ClearingTheFrameEmptiesAllThatItShows) {
    Dirty();
    ClearSkyFrame(w);
    EXPECT_EQ(Captions(), "||||||||||");
    EXPECT_EQ(Symbols(), "8222");
}

TEST_F(SkyConditionTest, TheBlockStandsWhereItsMessageHasIt) {
    const struct {
        std::int16_t model, messageId;
        std::size_t fromEnd;
        int layers, digits;  // 0: no block
    } cases[] = {
        {30, 3121, 3946, 4, 4}, {30, 3124, 3946, 4, 4}, {30, 3122, 2021, 4, 4},
        {30, 3123, 7596, 4, 4}, {30, 3125, 45, 4, 4},   {50, 3126, 7801, 5, 4},
        {30, 3128, 50, 5, 4},   {70, 61, 40, 4, 4},     {70, 60, 33, 4, 3},
        {20, 16, 33, 4, 3},     {10, 4, 33, 4, 3},      {20, 99, 33, 4, 3},
        {70, 99, 33, 0, 3},     {10, 99, 33, 0, 3},     {30, 3115, 45, 0, 4},
        {30, 3127, 45, 0, 4},   {30, -1, 45, 0, 4},     {20, 2, 33, 0, 3},
    };
    for (const auto& c : cases) {
        w.settings.CEILOMETER = c.model;
        LoadModel(w, LoadedBy::Start);
        w.intake.MessageId = c.messageId;
        std::string block;
        std::string expected;
        for (int i = 1; i <= 5; ++i) {
            const std::string height = " " + std::string(static_cast<std::size_t>(c.digits), '3');
            block += "  " + std::to_string(i) + height;
            const bool there = i <= c.layers;
            expected += c.layers == 0 ? "77|"
                        : there       ? std::to_string(i) + height + "|"
                                : "0 " + std::string(static_cast<std::size_t>(c.digits), '/') + "|";
        }
        w.sky.SkyAmounts.fill(7);
        w.sky.SkyHeights.fill("7");
        w.sky.SkyValid = 7;
        std::string frame(c.fromEnd, '9');
        frame.replace(0, block.size(), block);
        UpdateSkyCondition(w, "\x01 header " + frame.substr(0, c.fromEnd));
        EXPECT_EQ(w.sky.SkyValid, c.layers == 0 ? 0 : 1) << c.model << " " << c.messageId;
        EXPECT_EQ(Layers(w.sky), expected) << c.model << " " << c.messageId;
        EXPECT_EQ(w.frmMain.lblSkyCond[0].Caption, c.layers == 0 ? "" : "1") << c.messageId;
    }
}

TEST_F(SkyConditionTest, NoFrameIsTooShortOrTooStrange) {
    w.intake.MessageId = 3123;
    for (const std::string& frame : {std::string(), std::string("\x01"), std::string(9000, '\0'),
                                     std::string(9000, '9'), std::string(9000, 'E')}) {
        for (const std::int16_t look : {AmountNumbers, AmountTexts, AmountSymbols}) {
            w.settings.Cloud_Amount = look;
            EXPECT_NO_THROW(UpdateSkyCondition(w, frame));
            EXPECT_EQ(w.sky.SkyValid, 1);
        }
    }
}

}  // namespace
}  // namespace cumeron
