// Boxes with scripted answers.
#include "platform/scripted/scripted_dialogs.h"

#include <gtest/gtest.h>

namespace cumeron {
namespace {

TEST(ScriptedDialogs, LoneOkNeedsNoAnswerAndLeavesOtherAnswersAlone) {
    ScriptedDialogs dialogs;
    EXPECT_EQ(dialogs.MessageBox("told", BoxButtons::Ok), Answer::Ok);
    dialogs.AnswerNext(Answer::No);
    EXPECT_EQ(dialogs.MessageBox("told", BoxButtons::Ok), Answer::Ok);
    EXPECT_EQ(dialogs.MessageBox("asked", BoxButtons::YesNo), Answer::No);
}

TEST(ScriptedDialogs, AnswersComeInOrder) {
    ScriptedDialogs dialogs;
    for (const Answer answer : {Answer::Yes, Answer::Ok, Answer::Retry, Answer::Cancel}) {
        dialogs.AnswerNext(answer);
    }
    EXPECT_EQ(dialogs.MessageBox("", BoxButtons::YesNo), Answer::Yes);
    EXPECT_EQ(dialogs.MessageBox("", BoxButtons::Ok), Answer::Ok);
    EXPECT_EQ(dialogs.MessageBox("", BoxButtons::RetryCancel), Answer::Retry);
    EXPECT_EQ(dialogs.MessageBox("", BoxButtons::RetryCancel), Answer::Cancel);
}

TEST(ScriptedDialogs, QuestionWithoutItsAnswerIsNoExceptionThatATrapTakes) {
    ScriptedDialogs dialogs;
    dialogs.AnswerNext(Answer::Retry);
    bool trapped = false;
    try {
        try {
            dialogs.MessageBox("sure?", BoxButtons::YesNo);
        } catch (const std::exception&) {
            trapped = true;
        }
        FAIL() << "answered";
    } catch (const UnansweredBox& box) {
        EXPECT_EQ(box.text, "sure?");
    }
    EXPECT_FALSE(trapped);
}

TEST(ScriptedDialogs, BoxesAreTakenOldestFirst) {
    ScriptedDialogs dialogs;
    dialogs.MessageBox("one", BoxButtons::Ok);
    dialogs.MessageBox("two", BoxButtons::Ok);
    EXPECT_EQ(dialogs.Boxes().size(), 2U);
    EXPECT_EQ(dialogs.TakeBox(), "one");
    EXPECT_EQ(dialogs.TakeBox(), "two");
    EXPECT_EQ(dialogs.TakeBox(), std::nullopt);
}

TEST(ScriptedDialogs, BeepsAreCountedSinceTheLastLook) {
    ScriptedDialogs dialogs;
    dialogs.Beep();
    dialogs.Beep();
    EXPECT_EQ(dialogs.TakeBeeps(), 2);
    EXPECT_EQ(dialogs.TakeBeeps(), 0);
}

}  // namespace
}  // namespace cumeron
