// What no list of cases thinks of: seeded random bytes, and whole messages with seeded damage, down
// the whole road of every model. Nothing may escape from the tick, and the line must stay usable.
#include <gtest/gtest.h>

#include <random>

#include "intake/messages.h"

namespace cumeron {
namespace {

using Random = std::mt19937;

std::string GoodFrame(const ModelTable& model, Random& random) {
    static const std::string numbers[] = {"10", "15", "18", "23", "25", "28", "60", "73", "R0"};
    const std::string& number = numbers[random() % std::size(numbers)];
    const std::size_t length = 60 + random() % 3000;
    switch (model.family) {
        case Family::KN:
            return SealedKN(Padded("KN0210" + number, length) + "\x03");
        case Family::RV:
            return Padded("\x01RVA10" + number, length) + "\x03\r\n";
        case Family::RV10X:
            return Padded("\x02\r\n10", 105 + random() % 40) + "\r\n\x03\r\n";
        case Family::TQ60:
            return Padded("\x02X0TA08" + number, length) + "\r\n\x04";
    }
    return "";
}

std::string Bytes(Random& random) {
    static const std::string likely = "\x01\x02\x03\x04\r\nRVKNX0189ACF /-";
    std::string bytes(random() % 300, ' ');
    for (char& byte : bytes) {
        byte = random() % 2 ? likely[random() % likely.size()] : static_cast<char>(random() & 0xFF);
    }
    return bytes;
}

void Damage(std::string& frame, Random& random) {
    for (auto times = random() % 4; times > 0; --times)
        frame[random() % frame.size()] = static_cast<char>(random() & 0xFF);
}

std::string NextPiece(const ModelTable& model, Random& random) {
    switch (random() % 6) {
        case 0:
            return Bytes(random);
        case 1:
            return "NO CARRIER";
        case 2:
            return std::string(17000, '\x01');
        default: {
            std::string frame = GoodFrame(model, random);
            Damage(frame, random);
            return frame.substr(0, 1 + random() % frame.size()) + Bytes(random);
        }
    }
}

class IntakeRobustness : public testing::TestWithParam<int> {};

TEST_P(IntakeRobustness, TakesAnyBytesAndThenAGoodFrame) {
    Random random(static_cast<unsigned>(GetParam()));
    RunningStation station(GetParam());
    Workstation& w = station.w();
    for (int i = 0; i < 400; ++i) {
        const std::string piece = NextPiece(w.model, random);
        ASSERT_NO_THROW(station.Receive(piece));
        ASSERT_TRUE(station.machine.Running());
        ASSERT_EQ(w.intake.IntakeBusy, 0);
        ASSERT_EQ(w.frmMain.MousePointer, 0);
        ASSERT_LE(w.intake.ReceiveBuffer.size(), std::max<std::size_t>(16384, piece.size()));
    }
    EXPECT_EQ(station.MessageWindow().find("Run-time error"), std::string::npos)
        << "an error went past the tick";
    station.Seconds(2);
    const double before = w.graphs.MessageTime;
    station.ReceiveMessage(GoodFrame(w.model, random));
    EXPECT_GT(w.graphs.MessageTime, before) << "deaf after bad input";
    EXPECT_FALSE(station.machine.dialogs.TakeBox()) << "nobody sits there to read a box";
}

INSTANTIATE_TEST_SUITE_P(EveryModel, IntakeRobustness, testing::Values(70, 20, 10, 30, 50, 60));

}  // namespace
}  // namespace cumeron
