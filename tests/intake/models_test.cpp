#include "intake/models.h"

#include <gtest/gtest.h>

#include <set>

#include "intake/messages.h"

namespace cumeron {
namespace {

TEST(Models, EachHasItsName) {
    const struct {
        int code;
        const char* name;
    } cases[] = {{70, "RV70X"}, {20, "RV20X"}, {10, "RV10X"}, {30, "KN30"},
                 {50, "KN50"},  {60, "TQ60"},  {0, ""},       {31, ""}};
    for (const auto& c : cases) EXPECT_EQ(ModelName(c.code), c.name);
}

TEST(ModelTable, NamesEachModelOnce) {
    const std::set<std::int16_t> codes(ModelCodes().begin(), ModelCodes().end());
    EXPECT_EQ(codes.size(), ModelCodes().size());
    EXPECT_EQ(codes, (std::set<std::int16_t>{10, 20, 30, 50, 60, 70}));
    for (const int code : codes) EXPECT_TRUE(IsModel(code)) << code;
    for (const int code : {0, -30, 31, 300}) EXPECT_FALSE(IsModel(code)) << code;
}

TEST(ModelTable, HasAnIntervalForEachModel) {
    const struct {
        int code;
        const char* interval;
    } cases[] = {{70, "60"}, {20, "15"}, {10, "12"}, {30, "15"}, {50, "15"}, {60, "15"}, {31, ""}};
    for (const auto& c : cases) EXPECT_EQ(DefaultMessageInterval(c.code), c.interval) << c.code;
}

TEST(LoadModel, SetsWhatFollowsFromTheModel) {
    const struct {
        int code;
        const char* name;
        Family family;
        int profileLength, rangeSteps, angleOffset, statusDigits;
        int cloud1, cloud2, cloud3, cloud1Alt, cloud2Alt, status, angle, detection, alarm, exportAt;
    } cases[] = {
        {70, "RV70X", Family::RV, 751, 751, 90, 8, 15, 21, 27, 15, 21, 33, 67, 12, 13, 82},
        {20, "RV20X", Family::RV, 255, 255, 0, 8, 15, 21, 27, 15, 21, 33, 67, 12, 13, 82},
        {10, "RV10X", Family::RV10X, 128, 128, 0, 10, 8, 20, 14, 8, 20, 32, 67, 4, 5, 0},
        {30, "KN30", Family::KN, 1500, 257, 0, 12, 16, 22, 28, 16, 22, 34, 74, 13, 14, 92},
        {50, "KN50", Family::KN, 1540, 514, 0, 12, 16, 22, 28, 16, 22, 34, 74, 13, 14, 92},
        {60, "TQ60", Family::TQ60, 2048, 512, 0, 8, 28, 34, 40, 61, 67, 84, 67, 12, 91, 82},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Station station(c.code);
        const ModelTable& model = station.w.model;
        EXPECT_EQ(model.code, c.code);
        EXPECT_EQ(model.name, c.name);
        EXPECT_EQ(station.w.frmMain.lblCT.Caption, c.name);
        EXPECT_EQ(model.family, c.family);
        EXPECT_EQ(model.ProfileLength, c.profileLength);
        EXPECT_EQ(model.rangeSteps, c.rangeSteps);
        EXPECT_EQ(station.w.graphs.RangeTable[0], c.rangeSteps);
        EXPECT_EQ(model.AngleOffset, c.angleOffset);
        EXPECT_EQ(model.statusDigits, c.statusDigits);
        EXPECT_EQ(model.PosCloud1, c.cloud1);
        EXPECT_EQ(model.PosCloud2, c.cloud2);
        EXPECT_EQ(model.PosCloud3, c.cloud3);
        EXPECT_EQ(model.PosCloud1Alt, c.cloud1Alt);
        EXPECT_EQ(model.PosCloud2Alt, c.cloud2Alt);
        EXPECT_EQ(model.PosStatus, c.status);
        EXPECT_EQ(model.PosAngle, c.angle);
        EXPECT_EQ(model.PosDetection, c.detection);
        EXPECT_EQ(model.PosAlarm, c.alarm);
        EXPECT_EQ(model.PosExport, c.exportAt);
    }
}

TEST(LoadModel, SetsTheMarksOfTheFamily) {
    const struct {
        int code;
        const char *start, *end, *header, *noHeader;
    } cases[] = {
        {70, "\x01", "\x03\r\n", "RV", "No RV Header"},
        {20, "\x01", "\x03\r\n", "RV", "No RV Header"},
        {10, "\x02", "\x03\r\n", "\x02", "No <STX>"},
        {30, "\x01", "\x04\r\n", "KN", "No KN Header"},
        {50, "\x01", "\x04\r\n", "KN", "No KN Header"},
        {60, "\x02", "\r\n\x04", "X", "No RV Header"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.code);
        const Station station(c.code);
        EXPECT_EQ(station.w.model.FrameStart, c.start);
        EXPECT_EQ(station.w.model.FrameEnd, c.end);
        EXPECT_EQ(station.w.model.header, c.header);
        EXPECT_EQ(station.w.model.noHeader, c.noHeader);
    }
}

void ChangeModel(Workstation& w, int code) {
    w.settings.CEILOMETER = static_cast<std::int16_t>(code);
    LoadModel(w, LoadedBy::Dialog);
}

TEST(LoadModel, GivesTQ60OtherPlacesInTheDialog) {
    Station station(30);
    station.w.model.PosAngle = station.w.model.PosDetection = station.w.model.PosExport = 0;
    ChangeModel(station.w, 60);
    EXPECT_EQ(station.w.model.PosAngle, 74);
    EXPECT_EQ(station.w.model.PosDetection, 13);
    EXPECT_EQ(station.w.model.PosExport, 92);
    EXPECT_EQ(station.w.model.PosAlarm, 91);
}

TEST(LoadModel, LeavesRV10XWhatStoodThereInTheDialog) {
    Station station(70);
    ChangeModel(station.w, 30);
    station.w.model.AngleOffset = 90;
    ChangeModel(station.w, 10);
    EXPECT_EQ(station.w.model.PosAngle, 74);
    EXPECT_EQ(station.w.model.PosExport, 92);
    EXPECT_EQ(station.w.model.AngleOffset, 90);
    EXPECT_EQ(station.w.model.PosDetection, 4);
}

TEST(LoadModel, ChangesNothingForACodeThatIsNoModel) {
    Station station(30);
    ChangeModel(station.w, 31);
    EXPECT_EQ(station.w.model.code, 30);
    EXPECT_EQ(station.w.frmMain.lblCT.Caption, "KN30");
    EXPECT_EQ(station.w.graphs.RangeTable[0], 257);
}

}  // namespace
}  // namespace cumeron
