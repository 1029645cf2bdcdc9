// From the wire to the picture: a cloud base that the message tells stands at its height on the
// axis, in the colours and as a point.
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "graphs/graph_station.h"
#include "intake/messages.h"

namespace cumeron {
namespace {

constexpr int Samples = 385, Resolution = 20;  // metres
constexpr int Base = 1200, Top = 1400;         // metres

// Message 12 of a KN30: nothing but a cloud from Base to Top. status tells the unit.
std::string MessageOfCloud(const std::string& height, const std::string& status) {
    constexpr std::size_t header = 85, payload = 1945, tail = 8;
    std::string counted =
        Padded("KN021012\x02\r\n10 " + height + " ///// ///// " + status + "\r\n", header + 10);
    counted.replace(52, 2, std::to_string(Resolution));
    for (int i = 0; i < Samples; ++i) {
        const int metres = i * Resolution;
        counted += metres >= Base && metres <= Top ? "04E20" : "00000";
    }
    return SealedKN(Padded(counted, header + payload - tail) + "\x03");
}

// Rows of the picture, from the rows of the label strip, which begins one row further down.
struct Axis {
    explicit Axis(const Surface& strip) {
        for (const PrintedText& label : strip.Printed()) {
            rows[std::stod(label.text)] = label.y + 8 + 1;
        }
    }
    // Between two labels as the crow flies.
    double RowOf(double thousands) const {
        const auto above = rows.lower_bound(thousands);
        if (above->first == thousands) return above->second;
        const auto below = std::prev(above);
        return below->second + (above->second - below->second) * (thousands - below->first) /
                                   (above->first - below->first);
    }
    std::map<double, double> rows;
};

// The foot of the highest stretch that is not white.
int FootOfCloud(const std::string& column) {
    return static_cast<int>(column.find('.', column.find_first_not_of('.'))) - 1;
}

TEST(KnownBase, StandsAtItsHeightOnTheAxis) {
    const struct {
        const char* what;
        const char* settings;
        const char* height;
        const char* status;
        double thousands;  // of the base, in the unit of the labels
    } cases[] = {
        {"metres", "Units=1\r\n", "01200", "000000000080", 1.2},
        {"metres, stepped", "Units=1\r\nStep_Linear=1\r\n", "01200", "000000000080", 1.2},
        {"metres, stepped to the full height", "Units=1\r\nStep_Linear=2\r\n", "01200",
         "000000000080", 1.2},
        // A height step is 100 ft as well as 30 m: 1200 m are 40 of them.
        {"feet", "", "04000", "000000000000", 4},
        {"feet, stepped", "Step_Linear=1\r\n", "04000", "000000000000", 4},
        {"feet, stepped to the full height", "Step_Linear=2\r\n", "04000", "000000000000", 4},
    };
    for (const auto& c : cases) {
        for (const std::int16_t mode : {std::int16_t{0}, std::int16_t{1}}) {
            RunningStation station(30, std::string(c.settings) + "Chit_Point_Size=0\r\n");
            station.w().settings.Cloudmode = mode;
            ResizeForm(station.w(), station.w().frmMain, 1000, 1000);
            station.Seconds(1);
            station.ReceiveMessage(MessageOfCloud(c.height, c.status));
            ASSERT_EQ(station.w().graphs.CurrentColumn, 1) << c.what << station.MessageWindow();
            const Axis axis(station.w().frmMain.picYLabels);
            const std::string column = ColumnOf(station.w().frmMain.picCombination, 0);
            // A gate's colour reaches down to the gate below it.
            const double gate = mode == 0 ? c.thousands * Resolution / Base : 0;
            EXPECT_NEAR(FootOfCloud(column), axis.RowOf(c.thousands - gate), 2)
                << c.what << ' ' << mode;
            EXPECT_EQ(column.substr(column.size() - 60), std::string(60, '.')) << c.what;
        }
    }
}

}  // namespace
}  // namespace cumeron
