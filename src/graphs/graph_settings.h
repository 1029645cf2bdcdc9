// What the two dialogs of the graph settings share: the group of the height limits with its checks,
// the check for numbers, and options that stand for a number. backscatter_settings and
// cloud_settings use it.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>

#include "platform/form.h"

namespace cumeron {

struct Settings;

// The height limits of one graph, as the settings hold them.
struct HeightSettings {
    std::int16_t userDefined = 0;    // -1: low and high count, else scale
    std::int16_t scale = 0;          // entry of RangeTable
    std::int32_t low = 0, high = 0;  // feet or metres, as Units says
    bool operator==(const HeightSettings&) const = default;
};

HeightSettings BackscatterHeights(const Settings& settings);
HeightSettings CloudHeights(const Settings& settings);
void StoreBackscatterHeights(Settings& settings, const HeightSettings& heights);
void StoreCloudHeights(Settings& settings, const HeightSettings& heights);

// Either dialog is a form with these. The lists of controls give their names.
struct HeightControls {
    Frame fraYRange;
    std::array<OptionButton, 2> optYUser;  // predefined, user-defined
    ComboBox cboYRange;
    TextBox txtYLow, txtYHigh;
    Label MetersLabel, FeetLabel;
};

void NameHeightControls(HeightControls& controls);
void ListHeightControls(ControlList& list, HeightControls& controls);
// Puts the limits in force into the controls; lastScale is what this dialog calls the scale that
// one model alone has.
void ShowHeights(Workstation& w, Form& form, HeightControls& controls,
                 const HeightSettings& heights, const char* lastScale);
// The handler of optYUser: what the choice does not need takes no input.
void EnableHeights(HeightControls& controls);
// What is wrong with user-defined limits that are numbers, "" when nothing is. Raises 6 when a text
// or the highest altitude is beyond all numbers.
std::string HeightRefusal(const Workstation& w, const HeightControls& controls);
// The limits as they are to be stored; without a chosen scale, that of before. Raises 6 for limits
// beyond 32 bits.
HeightSettings ChosenHeights(const HeightControls& controls, const HeightSettings& before);

// Names each text that is no number; "" when all are.
std::string NumberRefusal(std::initializer_list<const TextBox*> boxes);

// Chooses the option at that place; a place beside them chooses none.
void ChooseAt(Workstation& w, Form& form, std::span<OptionButton> options, int place);
// Stores factor times the place of the chosen option, plus first; without one, the setting stays.
void TakeChosen(std::span<const OptionButton> options, std::int16_t& setting, int first = 0,
                int factor = 1);

}  // namespace cumeron
