#include "platform/host/serial_line.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "platform/runtime/errors.h"
#include "support.h"

namespace cumeron {
namespace {

TEST(ParseLineSettings, TakesTheUsualKinds) {
    const auto settings = ParseLineSettings(" 9600, e ,7,2");
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->baud, 9600);
    EXPECT_EQ(settings->parity, 'E');
    EXPECT_EQ(settings->dataBits, 7);
    EXPECT_EQ(settings->stopBits, 2);
    EXPECT_EQ(ParseLineSettings("300,N,8,1")->stopBits, 1);
    EXPECT_EQ(ParseLineSettings("300,N,5,1.5")->stopBits, 2);
}

TEST(ParseLineSettings, RefusesEverythingElse) {
    for (const char* text :
         {"", "19200", "19200,N,8", "19200,N,8,1,1", "19201,N,8,1", "19200,X,8,1", "19200,N,9,1",
          "19200,N,8,3", "19200,N,8,", ",,,", "-300,N,8,1"}) {
        EXPECT_FALSE(ParseLineSettings(text)) << text;
    }
}

TEST(FaultEvents, OneOfAKindForWhatWasCountedSince) {
    EXPECT_EQ(FaultEvents({5, 7}, {5, 7}), std::vector<int>{});
    EXPECT_EQ(FaultEvents({5, 7}, {9, 7}), std::vector<int>{CommEventReceiveParity});
    EXPECT_EQ(FaultEvents({5, 7}, {5, 8}), std::vector<int>{CommEventOverrun});
    EXPECT_EQ(FaultEvents({5, 7}, {6, 8}),
              (std::vector<int>{CommEventReceiveParity, CommEventOverrun}));
}

TEST(OpenError, TellsWhatIsWrongAndWhatToDo) {
    const struct {
        int code;
        int number;
        const char* word;
    } cases[] = {{ENOENT, 68, "no /dev/x"},      {ENXIO, 68, "no /dev/x"},
                 {EBUSY, 68, "another program"}, {EACCES, 70, "dialout"},
                 {EPERM, 70, "dialout"},         {EIO, 57, "/dev/x"},
                 {ENOTTY, 57, "/dev/x"}};
    for (const auto& c : cases) {
        EXPECT_EQ(OpenErrorNumber(c.code), c.number) << c.code;
        const std::string text = OpenErrorText(c.code, "/dev/x");
        EXPECT_NE(text.find(c.word), std::string::npos) << text;
        EXPECT_EQ(text.find(ErrorText(c.number)), 0U) << text;
    }
}

struct SerialLineTest : testing::Test {
    OwnFolders own;
    std::string device = own.Path("line");
    HostSerialLine line{[this](int number) { return number == 1 ? device : std::string(); }};
    int events = 0;

    SerialLineTest() {
        line.OnComm = [this] { ++events; };
    }
    bool Waits(int bytes) {
        return WaitUntil([&] { return line.InBufferCount() == bytes; });
    }
    int OpeningError() {
        return ErrorOf([&] { line.SetPortOpen(true); });
    }
};

TEST_F(SerialLineTest, OpeningWithoutADeviceRaises68) {
    EXPECT_EQ(OpeningError(), 68);
    line.SetCommPort(16);
    EXPECT_EQ(OpeningError(), 68);
    EXPECT_FALSE(line.PortOpen());
}

TEST_F(SerialLineTest, OpeningWhatIsNoLineRaises57) {
    WriteFile(device, "text");
    EXPECT_EQ(OpeningError(), 57);
    EXPECT_FALSE(line.PortOpen());
    EXPECT_EQ(ReadFile(device), "text");
}

TEST_F(SerialLineTest, OpeningALineInUseRaises68AndLeavesItAlone) {
    const PseudoTerminal instrument(device);
    HostSerialLine other([this](int) { return device; });
    other.SetPortOpen(true);
    EXPECT_EQ(OpeningError(), 68);
    instrument.Send("abc");
    EXPECT_TRUE(WaitUntil([&] { return other.InBufferCount() == 3; }));
    other.SetPortOpen(false);
    EXPECT_EQ(OpeningError(), 0);
}

TEST_F(SerialLineTest, RefusesWrongValuesAndKeepsTheOldOnes) {
    line.SetSettings("9600,e,7,1");
    EXPECT_EQ(ErrorOf([&] { line.SetSettings("9600,e,7,9"); }), 380);
    EXPECT_EQ(line.Settings(), "9600,e,7,1");
    line.SetCommPort(16);
    for (const int number : {0, 17, -1}) {
        EXPECT_EQ(ErrorOf([&] { line.SetCommPort(number); }), 380);
    }
    EXPECT_EQ(line.CommPort(), 16);
}

TEST_F(SerialLineTest, TakesEveryByteAsItCame) {
    const PseudoTerminal instrument(device);
    line.SetPortOpen(true);
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    instrument.Send(all);
    ASSERT_TRUE(Waits(256));
    EXPECT_EQ(line.Input(), all);
    EXPECT_EQ(line.InBufferCount(), 0);
}

TEST_F(SerialLineTest, BytesThatComeWithinTheEventAreThere) {
    const PseudoTerminal instrument(device);
    line.SetPortOpen(true);
    bool within = false;
    bool seen = false;
    line.OnComm = [&] {
        if (within) return;
        within = true;
        instrument.Send("b");
        seen = WaitUntil([&] { return line.InBufferCount() == 2; });
    };
    instrument.Send("a");
    EXPECT_TRUE(WaitUntil([&] { return seen; }));
    EXPECT_EQ(line.Input(), "ab");
}

TEST_F(SerialLineTest, ThePortMayCloseWithinTheEvent) {
    const PseudoTerminal instrument(device);
    line.SetPortOpen(true);
    bool seen = false;
    line.OnComm = [&] {
        line.SetPortOpen(false);
        Settle();
        seen = true;
    };
    instrument.Send("a");
    EXPECT_TRUE(WaitUntil([&] { return seen; }));
    EXPECT_FALSE(line.PortOpen());
    line.OnComm = nullptr;
    line.SetPortOpen(true);
    instrument.Send("b");
    EXPECT_TRUE(WaitUntil([&] { return line.InBufferCount() == 1; }));
}

TEST_F(SerialLineTest, ReceptionRaisesOnCommFromTheThresholdOn) {
    const PseudoTerminal instrument(device);
    line.SetPortOpen(true);
    line.RThreshold = 3;
    instrument.Send("ab");
    ASSERT_TRUE(Waits(2));
    EXPECT_EQ(events, 0);
    instrument.Send("c");
    ASSERT_TRUE(Waits(3));
    EXPECT_EQ(events, 1);
    EXPECT_EQ(line.CommEvent, CommEventReceive);
    line.RThreshold = 0;
    instrument.Send("d");
    ASSERT_TRUE(Waits(4));
    EXPECT_EQ(events, 1);
    line.ClearInput();
    EXPECT_EQ(line.Input(), "");
}

TEST_F(SerialLineTest, OutputReachesTheInstrument) {
    PseudoTerminal instrument(device);
    EXPECT_EQ(ErrorOf([&] { line.Output("x"); }), 8018);
    line.SetPortOpen(true);
    line.Output("OPEN\r");
    EXPECT_TRUE(WaitUntil([&] { return instrument.Received() == "OPEN\r"; }));
}

TEST_F(SerialLineTest, ClosingThrowsAwayWhatWaits) {
    const PseudoTerminal instrument(device);
    line.SetPortOpen(true);
    instrument.Send("abc");
    ASSERT_TRUE(Waits(3));
    line.SetPortOpen(false);
    EXPECT_EQ(line.InBufferCount(), 0);
    EXPECT_FALSE(line.PortOpen());
}

TEST_F(SerialLineTest, ALineWithoutModemLinesHasNoCarrierAndIgnoresDtr) {
    const PseudoTerminal instrument(device);
    EXPECT_TRUE(line.DTREnable());
    EXPECT_FALSE(line.RTSEnable());
    line.SetPortOpen(true);
    EXPECT_FALSE(line.CDHolding());
    line.SetDTREnable(false);
    line.SetRTSEnable(true);
    EXPECT_FALSE(line.DTREnable());
    EXPECT_TRUE(line.RTSEnable());
    instrument.Send("a");
    EXPECT_TRUE(Waits(1));
}

TEST_F(SerialLineTest, AVanishedDeviceIsTakenUpAgainWhenItReturns) {
    {
        const PseudoTerminal instrument(device);
        line.SetPortOpen(true);
        instrument.Send("abc");
        ASSERT_TRUE(Waits(3));
    }
    ASSERT_TRUE(WaitUntil([&] { return ErrorOf([&] { line.Output("x"); }) == 57; }));
    EXPECT_TRUE(line.PortOpen());
    EXPECT_EQ(line.Input(), "abc");

    const PseudoTerminal returned(device);
    ASSERT_TRUE(WaitUntil([&] { return ErrorOf([&] { line.Output("x"); }) == 0; }));
    returned.Send("def");
    ASSERT_TRUE(Waits(3));
    EXPECT_EQ(line.Input(), "def");
    EXPECT_TRUE(line.PortOpen());
}

TEST_F(SerialLineTest, AVanishedDeviceThatWasClosedStaysClosed) {
    {
        const PseudoTerminal instrument(device);
        line.SetPortOpen(true);
    }
    ASSERT_TRUE(WaitUntil([&] { return ErrorOf([&] { line.Output("x"); }) == 57; }));
    line.SetPortOpen(false);
    EXPECT_FALSE(line.PortOpen());
    EXPECT_EQ(ErrorOf([&] { line.Output("x"); }), 8018);
    EXPECT_EQ(OpeningError(), 68);
}

}  // namespace
}  // namespace cumeron
