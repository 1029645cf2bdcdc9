// The tick under arbitrary input. The first byte picks the model; then come chunks, each behind two
// bytes that give its length and what is done with it: arrive as it stands, arrive as the body of a
// frame with right marks and a right checksum, arrive as a fault of the line, or nothing for a
// while. Nothing may escape from the tick, and the line must take a good frame in the end.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "intake/intake.h"
#include "intake/models.h"
#include "intake/port.h"
#include "platform/scripted/scripted_machine.h"
#include "shell/message_windows.h"
#include "workstation.h"

namespace cumeron {
namespace {

// How an error that escaped from the tick or the line stands in the message window.
constexpr std::string_view EscapedError = "Run-time error";

void Require(bool held) {
    if (!held) std::abort();
}

// Right by its marks, and by its checksum where there is one.
std::string Framed(const ModelTable& model, std::string_view text) {
    const std::string header = model.family == Family::RV10X ? "" : model.header;
    std::string counted = header + std::string(text);
    if (model.family != Family::KN) return model.FrameStart + counted + model.FrameEnd;
    counted += '\x03';
    constexpr std::string_view digits = "0123456789abcdef";
    const unsigned checksum = FrameChecksum(counted);
    for (int shift = 12; shift >= 0; shift -= 4) counted += digits[checksum >> shift & 15];
    return model.FrameStart + counted + model.FrameEnd;
}

void Feed(ScriptedMachine& machine, const ModelTable& model, unsigned what,
          std::string_view chunk) {
    ScriptedLine& line = machine.line;
    switch (what % 8) {
        case 0:
            machine.Advance(40 * MicrosPerSecond);
            break;
        case 1:
            machine.Enter([&] { line.RaiseFault(CommEventReceiveParity); });
            break;
        case 2:
        case 3:
            machine.Enter([&] { line.Arrive(std::string(chunk)); });
            break;
        default:
            machine.Enter([&] { line.Arrive(Framed(model, chunk)); });
            break;
    }
    machine.Advance(MicrosPerSecond);
}

void CheckAtRest(const ScriptedMachine& machine, Workstation& w) {
    Require(machine.Running());
    Require(w.intake.IntakeBusy == 0);
    Require(w.frmMain.MousePointer == 0);
    Require(w.frmDebug.txtMessage.Text.find(EscapedError) == std::string::npos);
}

// A chunk may be as long as the longest message.
constexpr std::size_t LengthUnit = 32;

void Run(std::string_view input) {
    // Input that holds the words itself would be taken for an error.
    if (input.empty() || input.find(EscapedError) != input.npos) return;
    const auto codes = ModelCodes();
    const int code = codes[static_cast<unsigned char>(input.front()) % codes.size()];
    input.remove_prefix(1);
    ScriptedMachine machine;
    machine.platform.screen = {40, 30};  // a short history, for speed
    machine.files.Put(machine.files.SettingsFolder() + "\\CUMERON1.INI",
                      "[CUMERON]\r\nModem_used=1\r\nModem_Initialization_String=ATD\r\n"
                      "Status_Log=1\r\nCEILOMETER=" +
                          std::to_string(code) + "\r\n");
    machine.Start("");
    Workstation& w = *machine.Program();
    machine.Enter([&] { mnuShowMessage_Click(w); });
    machine.Enter([&] { mnuOpenPort_Click(w); });
    while (input.size() > 2) {
        const auto what = static_cast<unsigned char>(input[0]);
        const std::size_t length = static_cast<unsigned char>(input[1]) * LengthUnit;
        input.remove_prefix(2);
        const std::string_view chunk = input.substr(0, length);
        Feed(machine, w.model, what, chunk);
        CheckAtRest(machine, w);
        input.remove_prefix(chunk.size());
    }
    // Two quiet seconds empty the buffer; then a frame that is whole must be taken.
    machine.Advance(2 * MicrosPerSecond);
    w.graphs.MessageTime = 0;
    machine.Enter([&] { machine.line.Arrive(Framed(w.model, std::string(60, ' '))); });
    machine.Advance(MicrosPerSecond);
    CheckAtRest(machine, w);
    Require(w.graphs.MessageTime != 0);
}

}  // namespace
}  // namespace cumeron

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    cumeron::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
