// Boxes, file dialogs and beeps of the scripted platform, with the answers that the script gave
// beforehand.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/platform.h"

namespace cumeron {

// A box that asks something, and no answer for it in the script: the run cannot go on. It is no
// std::exception, so that no trap of the program takes it.
struct UnansweredBox {
    std::string text;
};

class ScriptedDialogs : public Dialogs {
public:
    // A box with a lone OK is answered OK; throws UnansweredBox when another box finds no answer,
    // or one that is none of its buttons.
    Answer MessageBox(const std::string& text, BoxButtons buttons,
                      BoxSign sign = BoxSign::None) override;
    void Beep() override { ++beeps; }
    // Throws UnansweredBox when nothing was chosen beforehand.
    std::string ChooseFiles(const FileQuestion& question) override;

    // For the next boxes, in order. A box with a lone OK takes an OK and leaves other answers to
    // the boxes behind it.
    void AnswerNext(Answer answer) { answers.push_back(answer); }
    // For the next file dialogs, in order: a full name, or a folder and names with a NUL between
    // them; nothing cancels the dialog.
    void ChooseNext(std::optional<std::string> chosen) { choices.push_back(std::move(chosen)); }
    // What the last file dialog was asked with.
    const FileQuestion& LastQuestion() const { return lastQuestion; }
    // The oldest box not yet taken.
    std::optional<std::string> TakeBox();
    // Boxes not yet taken, the oldest first.
    const std::deque<std::string>& Boxes() const { return boxes; }
    // Beeps since the last call.
    int TakeBeeps();
    // Happens while a box stands open, before it is answered.
    std::function<void()> OnBox;

private:
    std::deque<Answer> answers;
    std::deque<std::string> boxes;
    std::deque<std::optional<std::string>> choices;
    FileQuestion lastQuestion;
    int beeps = 0;
};

}  // namespace cumeron
