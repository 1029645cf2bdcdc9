#include "readings/sky_condition.h"

#include <algorithm>
#include <optional>

#include "platform/runtime/text.h"
#include "workstation.h"

namespace cumeron {

namespace {

constexpr int AmountLength = 3;
constexpr std::int16_t NoData = -1;      // amount of layer 0
constexpr std::int16_t RawMessage = 99;  // holds a block on one model only
constexpr std::int16_t RawBlockModel = 20;

// Where the block begins, counted from the frame's end, its last record and its height digits.
struct BlockRow {
    std::int16_t messageId;
    std::size_t fromEnd;
    int records, digits;
};

constexpr BlockRow BlockRows[] = {
    {3121, 3946, 3, 4}, {3124, 3946, 3, 4}, {3122, 2021, 3, 4}, {3123, 7596, 3, 4},
    {3125, 45, 3, 4},   {3126, 7801, 4, 4}, {3128, 50, 4, 4},   {61, 40, 3, 4},
    {60, 33, 3, 3},     {16, 33, 3, 3},     {4, 33, 3, 3},      {RawMessage, 33, 3, 3},
};

const BlockRow* BlockOf(const Workstation& w) {
    const std::int16_t id = w.intake.MessageId;
    if (id == RawMessage && w.model.code != RawBlockModel) return nullptr;
    for (const BlockRow& row : BlockRows) {
        if (row.messageId == id) return &row;
    }
    return nullptr;
}

// With an exponent, three characters can be more than an amount holds: no amount then.
std::optional<std::int16_t> AmountIn(const std::string& field) {
    if (!IsNumeric(field)) return std::nullopt;
    const double amount = ToDouble(field);
    if (amount > std::numeric_limits<std::int16_t>::max()) return std::nullopt;
    return ToInt16(amount);
}

std::string AmountCaption(const Workstation& w, std::int16_t amount) {
    if (w.settings.Cloud_Amount == AmountTexts) {
        return std::string(SkyAmountText(amount, w.model.family));
    }
    return amount == 0 || amount == UnreadableAmount ? "" : std::to_string(amount);
}

void ShowLayers(Workstation& w) {
    auto& labels = w.frmMain.lblSkyCond;
    for (std::size_t i = 0; i < SkyLayers; ++i) {
        const std::string& height = w.sky.SkyHeights[i];
        labels[2 * i].Caption = AmountCaption(w, w.sky.SkyAmounts[i]);
        // A height says nothing without its amount.
        const bool shown = IsNumeric(height) && w.sky.SkyAmounts[i] != UnreadableAmount;
        labels[2 * i + 1].Caption = shown ? height : "";
    }
}

bool HasSymbol(std::int16_t amount) { return amount >= 1 && amount <= 9; }

// The frame has room for three symbols: of layer 1 or below, of layer 3 or below, of layer 4.
void ShowSymbols(Workstation& w) {
    auto& symbols = w.frmMain.imgSky;
    const auto& amounts = w.sky.SkyAmounts;
    symbols[1].Picture = SkySymbol(w, HasSymbol(amounts[1]) ? 1 : 0);
    symbols[2].Picture = SkySymbol(w, HasSymbol(amounts[3]) ? 3 : 2);
    symbols[3].Picture = SkySymbol(w, 4);
}

void EmptyLabels(FrmMain& form) {
    for (Label& label : form.lblSkyCond) label.Caption.clear();
}

}  // namespace

std::string_view SkyAmountText(std::int16_t amount, Family family) {
    static constexpr struct {
        std::int16_t first, last;
        const char* text;
    } words[] = {{-2, -1, "Miss"}, {1, 2, "FEW"}, {3, 4, "SCT"}, {5, 7, "BKN"},
                 {8, 8, "OVC"},    {9, 9, "VV"},  {99, 99, "Na"}};
    if (amount == NoData && family == Family::RV10X) return "Na";
    for (const auto& row : words) {
        if (amount >= row.first && amount <= row.last) return row.text;
    }
    return "";
}

const std::string& SkySymbol(const Workstation& w, std::size_t layer) {
    const std::int16_t amount = w.sky.SkyAmounts.at(layer);
    const bool clear = layer == 0 && amount == 0;
    if (!clear && !HasSymbol(amount)) return BlankSkySymbol(w);
    // Two oktas share the symbol of one: the blank picture has the place of their own.
    return w.frmMain.imgSkyCond[amount == 2 ? 1 : static_cast<std::size_t>(amount)].Picture;
}

const std::string& BlankSkySymbol(const Workstation& w) {
    return w.frmMain.imgSkyCond[BlankSkyPicture].Picture;
}

void ParseSkyCondition(SkyState& sky, std::string_view block, int records, int digits) {
    const std::string noHeight = digits == 4 ? " ////" : " ///";
    const long length = digits + 1 + AmountLength;
    sky.SkyValid = 1;
    sky.SkyAmounts[4] = 0;
    sky.SkyHeights[4] = noHeight;
    // The second record tells whether there are data.
    const bool hasData = IsNumeric(Mid(block, length + 1, AmountLength));
    for (int i = 0; i <= records; ++i) {
        const auto layer = static_cast<std::size_t>(i);
        const long position = length * i + 1;
        const auto amount = AmountIn(Mid(block, position, AmountLength));
        sky.SkyAmounts[layer] = hasData ? amount.value_or(UnreadableAmount) : std::int16_t{0};
        sky.SkyHeights[layer] =
            hasData ? Mid(block, position + AmountLength, digits + 1) : noHeight;
    }
    if (!hasData) sky.SkyAmounts[0] = NoData;
}

void ShowSkyCondition(Workstation& w) {
    FrmMain& form = w.frmMain;
    if (w.sky.SkyValid == 0) {
        EmptyLabels(form);
        // kept: the symbol of layer 4 stays until the next block, and element 0, which shows
        // nothing, is emptied in its place.
        for (std::size_t i = 0; i <= 2; ++i) form.imgSky[i].Picture = BlankSkySymbol(w);
        return;
    }
    ShowLayers(w);
    if (w.settings.Cloud_Amount == AmountSymbols) ShowSymbols(w);
}

void ClearSkyFrame(Workstation& w) {
    FrmMain& form = w.frmMain;
    EmptyLabels(form);
    for (std::size_t i = 1; i <= 3; ++i) form.imgSky[i].Picture = BlankSkySymbol(w);
}

void UpdateSkyCondition(Workstation& w, std::string_view frame) {
    const BlockRow* row = BlockOf(w);
    w.sky.SkyValid = 0;
    if (row != nullptr) {
        const std::string_view block =
            frame.substr(frame.size() - std::min(frame.size(), row->fromEnd));
        ParseSkyCondition(w.sky, block, row->records, row->digits);
    }
    ShowSkyCondition(w);
    if (!w.frmMain.mnuSkyCond.Checked) return;
    // An observer reads heights in this window too; those of an older message would deceive.
    RepeatValues(w);
    UpDateSkyCond(w);
}

}  // namespace cumeron
