#include "graphs/graph_settings.h"

#include <algorithm>
#include <cstddef>

#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

// In the order of RangeTable; the last one goes by the dialog's own spelling.
constexpr const char* ScaleNames[] = {"Full Linear", "Step 12K", "Step 25K", "Step 50K"};
constexpr std::size_t ScalesOfEveryModel = 2;

struct ModelScales {
    std::int16_t code;
    std::size_t count;
};

// Higher scales make no sense for an instrument that does not see so far.
constexpr ModelScales ScaleRows[] = {{20, 3}, {30, 3}, {60, 4}, {50, 4}, {70, 5}};

std::size_t ScaleCount(std::int16_t code) {
    const auto* row = std::ranges::find(ScaleRows, code, &ModelScales::code);
    return row == std::end(ScaleRows) ? ScalesOfEveryModel : row->count;
}

struct HeightUnit {
    const char* name;
    int step;       // of the height scale, in this unit
    int leastSpan;  // between the limits
    int highestKn30, highestKn50;
};

constexpr HeightUnit Feet = {"feet", 100, 2000, 25300, 50600};
constexpr HeightUnit Metres = {"meters", 30, 600, 7700, 15400};
constexpr std::int16_t Kn30 = 30, Kn50 = 50;  // model codes

std::int32_t HighestAltitude(const Workstation& w, const HeightUnit& unit) {
    if (w.settings.CEILOMETER == Kn30) return unit.highestKn30;
    if (w.settings.CEILOMETER == Kn50) return unit.highestKn50;
    return ToInt32(static_cast<double>(w.model.ProfileLength) * unit.step / w.intake.ProfileScale);
}

}  // namespace

HeightSettings BackscatterHeights(const Settings& settings) {
    return {settings.Backscatter_Y_User_Defined, settings.Back_Step_Linear,
            settings.Backscatter_Y_Low_Value, settings.Backscatter_Y_High_Value};
}

HeightSettings CloudHeights(const Settings& settings) {
    return {settings.Clouds_Y_User_Defined, settings.Step_Linear, settings.Clouds_Y_Low_Value,
            settings.Clouds_Y_High_Value};
}

void StoreBackscatterHeights(Settings& settings, const HeightSettings& heights) {
    settings.Backscatter_Y_User_Defined = heights.userDefined;
    settings.Back_Step_Linear = heights.scale;
    settings.Backscatter_Y_Low_Value = heights.low;
    settings.Backscatter_Y_High_Value = heights.high;
}

void StoreCloudHeights(Settings& settings, const HeightSettings& heights) {
    settings.Clouds_Y_User_Defined = heights.userDefined;
    settings.Step_Linear = heights.scale;
    settings.Clouds_Y_Low_Value = heights.low;
    settings.Clouds_Y_High_Value = heights.high;
}

void NameHeightControls(HeightControls& controls) {
    controls.optYUser[0].Caption = "&Predefined";
    controls.optYUser[1].Caption = "&User-defined";
    controls.MetersLabel.Caption = "meters";
    controls.FeetLabel.Caption = "feet";
}

void ListHeightControls(ControlList& list, HeightControls& controls) {
    list.push_back({"fraYRange", -1, "", &controls.fraYRange});
    list.push_back({"optYUser", 0, "fraYRange", &controls.optYUser[0]});
    list.push_back({"cboYRange", -1, "fraYRange", &controls.cboYRange});
    list.push_back({"optYUser", 1, "fraYRange", &controls.optYUser[1]});
    list.push_back({"txtYLow", -1, "fraYRange", &controls.txtYLow});
    list.push_back({"txtYHigh", -1, "fraYRange", &controls.txtYHigh});
    list.push_back({"MetersLabel", -1, "fraYRange", &controls.MetersLabel});
    list.push_back({"FeetLabel", -1, "fraYRange", &controls.FeetLabel});
}

void ShowHeights(Workstation& w, Form& form, HeightControls& controls,
                 const HeightSettings& heights, const char* lastScale) {
    std::vector<std::string> scales(std::begin(ScaleNames), std::end(ScaleNames));
    scales.emplace_back(lastScale);
    scales.resize(ScaleCount(w.settings.CEILOMETER));
    controls.cboYRange.Items = scales;
    SelectItem(w, controls.cboYRange, heights.scale);
    controls.txtYLow.Text = std::to_string(heights.low);
    controls.txtYHigh.Text = std::to_string(heights.high);
    controls.MetersLabel.Visible = w.settings.Units != 0;
    controls.FeetLabel.Visible = w.settings.Units == 0;
    ChooseAt(w, form, controls.optYUser, heights.userDefined != 0 ? 1 : 0);
}

void EnableHeights(HeightControls& controls) {
    const bool user = controls.optYUser[1].Value;
    controls.txtYLow.Enabled = user;
    controls.txtYHigh.Enabled = user;
    controls.cboYRange.Enabled = !user;
}

std::string HeightRefusal(const Workstation& w, const HeightControls& controls) {
    if (!controls.optYUser[1].Value) return "";
    const HeightUnit& unit = w.settings.Units != 0 ? Metres : Feet;
    const double low = ToDouble(controls.txtYLow.Text);
    const double high = ToDouble(controls.txtYHigh.Text);
    const std::int32_t highest = HighestAltitude(w, unit);
    const auto isOutside = [&](double limit) { return limit < 0 || limit > highest; };
    std::string refusal;
    if (isOutside(low) || isOutside(high)) {
        refusal = "The valid range of altitudes is from 0 to " + std::to_string(highest) + " " +
                  unit.name + ".  ";
    }
    if (low + unit.leastSpan > high) {
        refusal += "The altitude plotting range should be at least " +
                   std::to_string(unit.leastSpan) + " " + unit.name + ".  ";
    }
    return refusal;
}

HeightSettings ChosenHeights(const HeightControls& controls, const HeightSettings& before) {
    HeightSettings chosen = before;
    chosen.low = ToInt32(controls.txtYLow.Text);
    chosen.high = ToInt32(controls.txtYHigh.Text);
    chosen.userDefined = controls.optYUser[1].Value ? -1 : 0;
    const int scale = controls.cboYRange.ListIndex;
    if (scale >= 0) chosen.scale = static_cast<std::int16_t>(scale);
    if (chosen.userDefined != 0) chosen.scale = 0;
    return chosen;
}

std::string NumberRefusal(std::initializer_list<const TextBox*> boxes) {
    std::string refusal;
    for (const TextBox* box : boxes) {
        if (IsNumeric(box->Text)) continue;
        refusal += "\"" + box->Text + "\" cannot be converted to a number.";
    }
    return refusal;
}

void ChooseAt(Workstation& w, Form& form, std::span<OptionButton> options, int place) {
    const auto at = static_cast<std::size_t>(place);
    if (place >= 0 && at < options.size()) ChooseOption(w, form, options[at]);
}

void TakeChosen(std::span<const OptionButton> options, std::int16_t& setting, int first,
                int factor) {
    for (std::size_t place = 0; place < options.size(); ++place) {
        const int value = first + factor * static_cast<int>(place);
        if (options[place].Value) setting = static_cast<std::int16_t>(value);
    }
}

}  // namespace cumeron
