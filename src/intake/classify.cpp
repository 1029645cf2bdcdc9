// FrameText, positions from 1: a blank, the header from 2 on, and
//
//     RV      7 message number (2), or "R" for a raw message
//     RV20X   80 samples per height step
//     KN      8 message number (2)   54 range resolution in metres (2), further behind where a sky
//             condition block stands before it
//     TQ60    4 kind of message (2)   7 "8" for the short profile   8 message number (2)
//     RV10X   2 "RV" marks what is no message   42 Payload
//
// The Payload of RV and KN begins at Start_Of_Information, that of TQ60 at 6.
#include "intake/classify.h"

#include <algorithm>
#include <span>

#include "platform/runtime/errors.h"
#include "platform/runtime/text.h"
#include "shell/indicators.h"
#include "workstation.h"

namespace cumeron {
namespace {

constexpr std::int16_t NotValid = -1;
constexpr std::int16_t RawMessage = 99;
constexpr std::string_view NotValidText = "Not Valid Msg";
constexpr std::string_view RawMessageText = "RAW_MESSAGE";
constexpr int AnyLength = -1;  // every length that no other row of the table has

enum class View { Stays, CloudHits };

// Which message it is: by the length of the Payload, a text at a place of FrameText ("" fits
// any), and a character at another ('\0' fits any). The first row that fits holds.
struct MessageKind {
    int payloadLength;
    long textAt;
    std::string_view text;
    long markAt;
    char mark;
    std::int16_t id;
    std::string_view literal;
    View view;
};

// clang-format off
constexpr MessageKind RVKinds[] = {
    {1137,      7, "73", 0, '\0', 16,       "Msg 7, No Errors", View::Stays},
    {1107,      7, "23", 0, '\0', 15,       "Msg2, No Errors",  View::Stays},
    {1131,      7, "73", 0, '\0', 16,       "Msg 7, No SkyC",   View::Stays},
    {1659,      7, "24", 0, '\0', 23,       "Msg 2, No Errors", View::Stays},
    {3246,      7, "28", 0, '\0', 46,       "Msg 2, No Errors", View::Stays},
    // kept: at this length alone the operator is told without the mark of an error.
    {3246,      7, "",   0, '\0', NotValid, NotValidText,       View::Stays},
    {AnyLength, 7, "10", 0, '\0', 2,        "Msg 1",            View::CloudHits},
    {AnyLength, 7, "60", 0, '\0', 60,       "Msg 6",            View::CloudHits},
    {AnyLength, 7, "61", 0, '\0', 61,       "Msg 61",           View::CloudHits},
    {AnyLength, 7, "33", 0, '\0', 2,        "Msg 3",            View::CloudHits},
    {AnyLength, 7, "S0", 0, '\0', 2,        "MSG Status",       View::CloudHits},
};

constexpr MessageKind KNKinds[] = {
    {3907,      8, "21", 0, '\0', 3121, "Msg21, No Errors", View::Stays},
    {3907,      8, "24", 0, '\0', 3124, "Msg24, No Errors", View::Stays},
    {3870,      8, "11", 0, '\0', 3111, "Msg11, No Errors", View::Stays},
    {3870,      8, "14", 0, '\0', 3114, "Msg14, No Errors", View::Stays},
    {2053,      4, "RD", 0, '\0', 40,   "RD, No Errors",    View::Stays},
    {1945,      8, "12", 0, '\0', 3112, "Msg12, No Errors", View::Stays},
    {1982,      8, "22", 0, '\0', 3122, "Msg22, No Errors", View::Stays},
    {7520,      8, "13", 0, '\0', 3113, "Msg13, No Errors", View::Stays},
    {7557,      8, "23", 0, '\0', 3123, "Msg23, No Errors", View::Stays},
    {7720,      8, "16", 0, '\0', 3116, "Msg16, No Errors", View::Stays},
    {7762,      8, "26", 0, '\0', 3126, "Msg26, No Errors", View::Stays},
    {AnyLength, 8, "15", 0, '\0', 3115, "Msg15, No Errors", View::CloudHits},
    {AnyLength, 8, "18", 0, '\0', 3118, "Msg18, No Errors", View::CloudHits},
    {AnyLength, 8, "25", 0, '\0', 3125, "Msg25, No Errors", View::CloudHits},
    {AnyLength, 8, "28", 0, '\0', 3128, "Msg28, No Errors", View::CloudHits},
    {AnyLength, 4, "TA", 7, '8',  38,   "TA, No Errors",    View::Stays},
    // kept: the long profile is told in the words of the message of the other kind.
    {AnyLength, 4, "TA", 0, '\0', 39,   "RD, No Errors",    View::Stays},
};

// RV10X: the length of FrameText is the whole test.
struct LengthKind {
    std::size_t shortest, longest;
    std::int16_t id;
    std::string_view literal;
};
constexpr LengthKind RV10XKinds[] = {
    {142, 143,                    4,          "Msg6, No Errors"},
    {112, 113,                    3,          "Msg3, No Errors"},
    {401, std::string_view::npos, RawMessage, RawMessageText},
};
// clang-format on
constexpr long RV10XPayloadAt = 42;

bool TextStandsAt(std::string_view frameText, long position, std::string_view text) {
    return Mid(frameText, position, static_cast<long>(text.size())) == text;
}

bool HasMark(std::string_view frameText, const MessageKind& kind) {
    return kind.mark == '\0' ||
           TextStandsAt(frameText, kind.markAt, std::string_view(&kind.mark, 1));
}

// The length goes first: a known length with another number is no message at all.
const MessageKind* FindKind(std::span<const MessageKind> kinds, std::string_view frameText,
                            std::size_t payloadLength) {
    int length = static_cast<int>(payloadLength);
    const bool known = std::any_of(kinds.begin(), kinds.end(),
                                   [&](const auto& kind) { return kind.payloadLength == length; });
    if (!known) length = AnyLength;
    for (const MessageKind& kind : kinds) {
        if (kind.payloadLength == length && TextStandsAt(frameText, kind.textAt, kind.text) &&
            HasMark(frameText, kind))
            return &kind;
    }
    return nullptr;
}

std::int16_t TellNotValid(Workstation& w) {
    SetErrorsPanel(w, NotValidText, Red);
    return NotValid;
}

std::int16_t ClassifyByKinds(Workstation& w, std::span<const MessageKind> kinds,
                             std::string_view frameText, std::size_t payloadLength) {
    const MessageKind* kind = FindKind(kinds, frameText, payloadLength);
    if (!kind) return TellNotValid(w);
    if (kind->view == View::CloudHits && !w.frmMain.mnuCloudhit.Checked) ShowCloudHitView(w);
    SetErrorsPanel(w, kind->literal, Black);
    return kind->id;
}

std::int16_t ClassifyByLength(Workstation& w, std::string_view frameText, std::string& payload) {
    payload.clear();
    if (frameText.size() < static_cast<std::size_t>(RV10XPayloadAt) ||
        TextStandsAt(frameText, 2, "RV"))
        return TellNotValid(w);
    for (const LengthKind& kind : RV10XKinds) {
        if (frameText.size() < kind.shortest || frameText.size() > kind.longest) continue;
        payload = Mid(frameText, RV10XPayloadAt);
        SetErrorsPanel(w, kind.literal, Black);
        return kind.id;
    }
    return TellNotValid(w);
}

std::string CutPayload(const Workstation& w, std::string_view frameText) {
    const bool isTQ60 = w.model.family == Family::TQ60;
    const long start = w.settings.Start_Of_Information;
    // kept: number 25 has nothing but fields and a sky condition block; what stands behind them
    // is never taken for a profile.
    const bool isKN25 = w.model.family == Family::KN && TextStandsAt(frameText, 8, "25");
    if (!isTQ60 && static_cast<long>(frameText.size()) > start && !isKN25)
        return Mid(frameText, start);
    if (isTQ60 && frameText.size() >= 201) return Mid(frameText, 6);
    return "";
}

// By how much a sky condition block shifts the fields behind it.
long ShiftOfKNFields(std::string_view frameText) {
    if (!TextStandsAt(frameText, 8, "2") || TextStandsAt(frameText, 9, "5")) return 0;
    return TextStandsAt(frameText, 9, "6") ? 42 : 37;
}

double ScaleOfKN(std::string_view frameText, std::int16_t id) {
    const std::string resolution = Mid(frameText, 54 + ShiftOfKNFields(frameText), 2);
    if (id == NotValid || !IsNumeric(resolution)) return 1;
    const auto metres = static_cast<float>(ToDouble(resolution));
    if (metres == 0) throw RuntimeError(11);
    return 30.0F / metres;
}

// The digit 5 stands for the usual resolution, as 0 does.
double ScaleOfRV20X(char digit) { return digit == '0' || digit == '5' ? 1 : digit - '0'; }

void SetProfileScale(Workstation& w, std::string_view frameText, std::int16_t id) {
    double& scale = w.intake.ProfileScale;
    if (w.model.family == Family::KN) {
        scale = ScaleOfKN(frameText, id);
        return;
    }
    const std::string digit = Mid(frameText, 80, 1);
    if (id != NotValid && IsNumeric(digit)) scale = w.model.code == 20 ? ScaleOfRV20X(digit[0]) : 1;
    if (w.model.family == Family::TQ60) scale = 4;
}

// kept: this comes before the message is logged, so that a write that failed is told with the next
// message.
void TellSaveError(Workstation& w) {
    if (w.frmMain.mnuLogOn.Checked && w.logging.LogWriteOk == 0) {
        SetErrorsPanel(w, "SAVE ERROR", Red);
    }
}

}  // namespace

std::int16_t ClassifyMessage(Workstation& w, std::string_view frameText, std::string& payload) {
    std::int16_t id = NotValid;
    if (w.model.family == Family::RV10X) {
        id = ClassifyByLength(w, frameText, payload);
    } else {
        payload = CutPayload(w, frameText);
        const bool isRV = w.model.family == Family::RV;
        if (isRV && TextStandsAt(frameText, 7, "R")) {
            // kept: a raw message says nothing about scales and leaves the last one, nor about the
            // log.
            SetErrorsPanel(w, RawMessageText, Black);
            return RawMessage;
        }
        const auto kinds = isRV ? std::span<const MessageKind>(RVKinds) : KNKinds;
        id = ClassifyByKinds(w, kinds, frameText, payload.size());
    }
    SetProfileScale(w, frameText, id);
    TellSaveError(w);
    return id;
}

}  // namespace cumeron
