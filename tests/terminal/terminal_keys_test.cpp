#include "terminal/terminal_keys.h"

#include <gtest/gtest.h>

#include "platform/runtime/errors.h"
#include "session.h"

namespace cumeron {
namespace {

TEST(TerminalKeys, GoOutAndDoNotAppear) {
    Session session(Line::Open);
    session.Arrive("text");
    session.Form().txtTerm.SelStart = 1;
    for (const int key : {97, 13, 8, 27, 127, 255}) EXPECT_EQ(session.Key(key), 0);
    EXPECT_EQ(session.Sent(), "a\r\b\x1B\x7F\xFF");
    EXPECT_EQ(session.Text(), "text");
    EXPECT_EQ(session.Form().txtTerm.SelStart, 4);
}

TEST(TerminalKeys, StayInTheBoxWithThePortClosed) {
    Session session(Line::Closed);
    EXPECT_EQ(session.Key('a'), 'a');
    EXPECT_FALSE(session.Paste("abc"));
    EXPECT_EQ(session.Sent(), "");
}

TEST(TerminalKeys, AppearByThemselvesWithoutAnEcho) {
    Session session(Line::Open);
    session.W().terminal.TerminalEchoOff = -1;
    EXPECT_EQ(session.Key('a'), 'a');
    EXPECT_EQ(session.Sent(), "a");
}

TEST(TerminalKeys, TellADeviceThatHasVanished) {
    Session session(Line::Open);
    session.machine.line.SetPortOpen(false);
    session.machine.line.SetPortOpen(true);
    session.machine.line.FailNextOutput(57);
    EXPECT_EQ(session.Key('a'), 0);
    EXPECT_NE(session.Box().find("Error Number: 57"), std::string::npos);
    EXPECT_TRUE(session.machine.Running());
    EXPECT_EQ(session.Key('b'), 0);
    EXPECT_EQ(session.Sent(), "b") << "the device is back";
}

TEST(TerminalPaste, IsSentCharacterByCharacter) {
    Session session(Line::Open);
    EXPECT_TRUE(session.Paste("ab\r\ncd"));
    const struct {
        double seconds;  // since the last look
        const char* sent;
        const char* panel;
    } steps[] = {{0, "a", "Pasting: 4 left"},
                 {0.039, "", "Pasting: 4 left"},
                 {0.002, "b", "Pasting: 3 left"},
                 {0.04, "\r", "Pasting: 2 left"},
                 {0.49, "", "Pasting: 2 left"},
                 {0.01, "c", "Pasting: 1 left"},
                 {0.04, "d", ""},
                 {5, "", ""}};
    for (const auto& step : steps) {
        session.Seconds(step.seconds);
        EXPECT_EQ(session.Sent(), step.sent);
        EXPECT_EQ(session.Form().sbrStatus.Paste.Text, step.panel);
        EXPECT_EQ(session.Form().sbrStatus.Paste.Visible, *step.panel != '\0');
    }
    EXPECT_EQ(session.Text(), "");
}

TEST(TerminalPaste, EndsEveryLineInACarriageReturn) {
    const std::pair<const char*, const char*> cases[] = {
        {"a\nb", "a\rb"},   {"a\r\nb", "a\rb"}, {"a\rb\r", "a\rb\r"},
        {"\n\na", "\r\ra"}, {"\n", "\r"},
    };
    for (const auto& [text, sent] : cases) {
        Session session(Line::Open);
        session.Paste(text);
        session.Seconds(10);
        EXPECT_EQ(session.Sent(), sent);
    }
}

TEST(TerminalPaste, AnEmptyOneIsNone) {
    Session session(Line::Open);
    EXPECT_TRUE(session.Paste(""));
    session.Seconds(1);
    EXPECT_EQ(session.Sent(), "");
    EXPECT_EQ(session.Key('a'), 0);
    EXPECT_EQ(session.Sent(), "a");
}

TEST(TerminalPaste, KeysAndFurtherPastesQueueUpBehindIt) {
    Session session(Line::Open);
    session.Paste("abc");
    EXPECT_EQ(session.Key('d'), 0);
    EXPECT_EQ(session.Form().sbrStatus.Paste.Text, "Pasting: 3 left");
    session.Paste("ef");
    EXPECT_EQ(session.Form().sbrStatus.Paste.Text, "Pasting: 5 left");
    session.Seconds(1);
    EXPECT_EQ(session.Sent(), "abcdef");
    session.Paste("gh");
    session.Seconds(1);
    EXPECT_EQ(session.Sent(), "gh");
}

TEST(TerminalPaste, EscapeEndsIt) {
    Session session(Line::Open);
    session.Paste("abc");
    EXPECT_EQ(session.Key(27), 0);
    session.Seconds(1);
    EXPECT_EQ(session.Sent(), "a");
    EXPECT_FALSE(session.Form().sbrStatus.Paste.Visible);
    session.Key(27);
    EXPECT_EQ(session.Sent(), "\x1B") << "it is a key like any other again";
}

TEST(TerminalPaste, IsDroppedWhenThePortCloses) {
    Session session(Line::Open);
    session.Paste("abc");
    session.Click(session.Form().mnuClosePort);
    session.Click(session.Form().mnuOpenPort);
    session.Seconds(1);
    EXPECT_EQ(session.Sent(), "a");
}

TEST(TerminalPaste, IsDroppedWhenTheTerminalIsLeft) {
    Session session(Line::Open);
    session.Paste("abc");
    session.Leave();
    session.machine.Enter([&] { ShowForm(session.W(), session.Form()); });
    session.Seconds(1);
    EXPECT_EQ(session.Sent(), "a");
    EXPECT_FALSE(session.Form().sbrStatus.Paste.Visible);
}

TEST(TerminalPaste, IsDroppedWhenTheDeviceVanishes) {
    Session session(Line::Open);
    session.Paste("abcdef");
    session.machine.line.FailNextOutput(57);
    session.Seconds(1);
    EXPECT_NE(session.Box().find("Error Number: 57"), std::string::npos);
    EXPECT_EQ(session.Box(), "no box") << "told once";
    EXPECT_EQ(session.Sent(), "a");
}

TEST(TerminalPaste, StandsStillInTheBoxAboutItsFirstCharacter) {
    Session session(Line::Open);
    session.machine.line.FailNextOutput(57);
    session.machine.dialogs.OnBox = [&] { session.machine.Advance(MicrosPerSecond); };
    session.Paste("abc");
    EXPECT_NE(session.Box().find("Error Number: 57"), std::string::npos);
    session.Seconds(1);
    EXPECT_EQ(session.Sent(), "");
    EXPECT_FALSE(session.Form().sbrStatus.Paste.Visible);
}

TEST(TerminalPaste, AppearsByItselfWithoutAnEcho) {
    Session session(Line::Open);
    session.W().terminal.TerminalEchoOff = 1;
    session.Paste("ab\n");
    session.Seconds(1);
    EXPECT_EQ(session.Text(), "ab\r\n");
    EXPECT_EQ(session.Form().txtTerm.SelStart, 4);
}

}  // namespace
}  // namespace cumeron
