#include "platform/scripted/scripted_dialogs.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/runtime/errors.h"

namespace cumeron {

namespace {

std::vector<Answer> AnswersOf(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::Ok:
            return {Answer::Ok};
        case BoxButtons::YesNo:
            return {Answer::Yes, Answer::No};
        case BoxButtons::YesNoCancel:
            return {Answer::Yes, Answer::No, Answer::Cancel};
        case BoxButtons::RetryCancel:
            return {Answer::Retry, Answer::Cancel};
    }
    return {};
}

}  // namespace

Answer ScriptedDialogs::MessageBox(const std::string& text, BoxButtons buttons, BoxSign) {
    boxes.push_back(text);
    if (OnBox) OnBox();
    const std::vector<Answer> possible = AnswersOf(buttons);
    const bool answered = !answers.empty() && std::find(possible.begin(), possible.end(),
                                                        answers.front()) != possible.end();
    if (answered) {
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    if (buttons != BoxButtons::Ok) throw UnansweredBox{text};
    return Answer::Ok;
}

std::string ScriptedDialogs::ChooseFiles(const FileQuestion& question) {
    lastQuestion = question;
    if (choices.empty()) throw UnansweredBox{"file dialog, " + question.filter};
    const std::optional<std::string> chosen = std::move(choices.front());
    choices.pop_front();
    if (!chosen) throw RuntimeError(32755);
    return *chosen;
}

std::optional<std::string> ScriptedDialogs::TakeBox() {
    if (boxes.empty()) return std::nullopt;
    std::string text = boxes.front();
    boxes.pop_front();
    return text;
}

int ScriptedDialogs::TakeBeeps() { return std::exchange(beeps, 0); }

}  // namespace cumeron
