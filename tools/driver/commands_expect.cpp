// The expectations; each run of one counts as passed or failed.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "commands.h"
#include "names.h"
#include "platform/runtime/text.h"
#include "values.h"

namespace cumeron {

namespace {

void RunExpect(Session& session, const Words& arguments) {
    const Value held = ValueOf(session, arguments[0]);
    session.Check(Matches(held, arguments[1]), ShownExpectation(held, arguments[1]), Shown(held));
}

void RunExpectNear(Session& session, const Words& arguments) {
    const Value held = ValueOf(session, arguments[0]);
    const double number = NumberArgument(arguments[1]);
    const double tolerance = NumberArgument(arguments[2]);
    const bool isNumber =
        !std::holds_alternative<std::string>(held) || IsNumeric(std::get<std::string>(held));
    session.Check(isNumber && std::abs(AsDouble(held) - number) <= tolerance,
                  arguments[1] + " within " + arguments[2], Shown(held));
}

void CheckHolds(Session& session, const std::string& text, const std::string& part, bool wanted) {
    session.Check((text.find(part) != std::string::npos) == wanted,
                  (wanted ? "a text with " : "a text without ") + Quoted(part), Quoted(text));
}

void RunExpectHas(Session& session, const Words& arguments) {
    CheckHolds(session, AsText(ValueOf(session, arguments[0])), arguments[1], true);
}

void RunExpectNot(Session& session, const Words& arguments) {
    CheckHolds(session, AsText(ValueOf(session, arguments[0])), arguments[1], false);
}

void RunBox(Session& session, const Words& arguments) {
    const std::optional<std::string> box = session.machine.dialogs.TakeBox();
    session.Check(box == arguments[0], Quoted(arguments[0]), box ? Quoted(*box) : "no box");
}

void RunBoxHas(Session& session, const Words& arguments) {
    const std::optional<std::string> box = session.machine.dialogs.TakeBox();
    session.Check(box && box->find(arguments[0]) != std::string::npos,
                  "a box with " + Quoted(arguments[0]), box ? Quoted(*box) : "no box");
}

void RunNoBox(Session& session, const Words&) {
    const auto& boxes = session.machine.dialogs.Boxes();
    session.Check(boxes.empty(), "no box", boxes.empty() ? "" : Quoted(boxes.front()));
}

std::optional<std::string> FileContent(Session& session, const std::string& name) {
    return session.machine.files.Content(ProgramFileName(session, name));
}

std::string ShownFile(const std::optional<std::string>& content) {
    return content ? Quoted(*content) : "no file";
}

void RunFile(Session& session, const Words& arguments) {
    const auto content = FileContent(session, arguments[0]);
    const std::string expected = Joined(arguments, 1);
    session.Check(content == expected, Quoted(expected), ShownFile(content));
}

void RunFileHas(Session& session, const Words& arguments) {
    const auto content = FileContent(session, arguments[0]);
    session.Check(content && content->find(arguments[1]) != std::string::npos,
                  "a file with " + Quoted(arguments[1]), ShownFile(content));
}

void RunFileNot(Session& session, const Words& arguments) {
    const auto content = FileContent(session, arguments[0]);
    session.Check(content && content->find(arguments[1]) == std::string::npos,
                  "a file without " + Quoted(arguments[1]), ShownFile(content));
}

void RunNoFile(Session& session, const Words& arguments) {
    const auto content = FileContent(session, arguments[0]);
    session.Check(!content, "no file", ShownFile(content));
}

// A last line that is not ended counts for none and makes the expectation fail.
void RunLines(Session& session, const Words& arguments) {
    const auto content = FileContent(session, arguments[0]);
    const int expected = IntegerArgument(arguments[1]);
    int lines = 0;
    std::size_t at = 0, end = 0;
    while (content && (end = content->find("\r\n", at)) != std::string::npos) {
        ++lines;
        at = end + 2;
    }
    const bool whole = content && at == content->size();
    session.Check(
        whole && lines == expected, arguments[1] + " lines",
        !content ? "no file" : std::to_string(lines) + (whole ? " lines" : " lines and a part"));
}

void RunRan(Session& session, const Words& arguments) {
    auto& started = session.machine.process.started;
    const std::string got = started.empty() ? "none" : Quoted(started.front());
    session.Check(!started.empty() && started.front() == arguments[0], Quoted(arguments[0]), got);
    if (!started.empty()) started.pop_front();
}

void RunRanNone(Session& session, const Words&) {
    const auto& started = session.machine.process.started;
    session.Check(started.empty(), "none", started.empty() ? "" : Quoted(started.front()));
}

void RunBeeps(Session& session, const Words& arguments) {
    const int beeps = session.machine.dialogs.TakeBeeps();
    session.Check(beeps == IntegerArgument(arguments[0]), arguments[0], std::to_string(beeps));
}

std::string ShownColour(int colour) {
    return "&H" + PadLeft(Hex(static_cast<std::uint32_t>(colour)), 6, '0');
}

void RunPixel(Session& session, const Words& arguments) {
    const Surface& surface = FindSurface(session, arguments[0]);
    const int expected = IntegerArgument(arguments[3]);
    const int colour = surface.Pixel(IntegerArgument(arguments[1]), IntegerArgument(arguments[2]));
    session.Check(colour == expected, ShownColour(expected),
                  colour < 0 ? "no pixel" : ShownColour(colour));
}

void RunPrinted(Session& session, const Words& arguments) {
    const Surface& surface = FindSurface(session, arguments[0]);
    const int x = IntegerArgument(arguments[2]);
    const int y = IntegerArgument(arguments[3]);
    const int tolerance = IntegerArgument(arguments[4]);
    bool found = false;
    std::string places;
    for (const PrintedText& printed : surface.Printed()) {
        if (printed.text != arguments[1]) continue;
        found =
            found || (std::abs(printed.x - x) <= tolerance && std::abs(printed.y - y) <= tolerance);
        places += " " + std::to_string(printed.x) + " " + std::to_string(printed.y);
    }
    session.Check(found, Quoted(arguments[1]) + " at " + arguments[2] + " " + arguments[3],
                  places.empty() ? "it nowhere" : "it at" + places);
}

void RunEnded(Session& session, const Words& arguments) {
    if (arguments[0] != "yes" && arguments[0] != "no") {
        throw CommandError{Quoted(arguments[0]) + " is neither yes nor no"};
    }
    session.Program();
    const std::string got = session.machine.Ended() ? "yes" : "no";
    session.Check(got == arguments[0], arguments[0], got);
}

// A number, or a name that stands for one.
int PixelsOf(Session& session, const std::string& text) {
    const std::optional<int> number = WholeNumberOf(text);
    return number ? *number : static_cast<int>(std::lround(AsDouble(ValueOf(session, text))));
}

std::string SizeText(int width, int height) {
    return std::to_string(width) + " " + std::to_string(height);
}

std::string ClipboardText(const Session& session) {
    const auto& picture = session.machine.clipboard.picture;
    return picture ? SizeText(picture->PixelWidth(), picture->PixelHeight()) : "no picture";
}

void RunClipboard(Session& session, const Words& arguments) {
    const std::string expected =
        SizeText(PixelsOf(session, arguments[0]), PixelsOf(session, arguments[1]));
    const std::string got = ClipboardText(session);
    session.Check(got == expected, expected, got);
}

void RunNoClipboard(Session& session, const Words&) {
    session.Check(!session.machine.clipboard.picture, "no picture", ClipboardText(session));
}

void RunPages(Session& session, const Words& arguments) {
    const int expected = IntegerArgument(arguments[0]);
    const int pages = session.machine.printer.TakePages();
    session.Check(pages == expected, arguments[0], std::to_string(pages));
}

void RunPageHas(Session& session, const Words& arguments) {
    const auto& page = session.machine.printer.LastPage();
    bool found = false;
    std::string texts;
    for (const PageOperation& operation : page ? page->operations : std::vector<PageOperation>()) {
        const auto* text = std::get_if<PageText>(&operation);
        if (text == nullptr) continue;
        found = found || text->text == arguments[0];
        texts += (texts.empty() ? "" : " ") + Quoted(text->text);
    }
    session.Check(found, Quoted(arguments[0]), page ? texts : "no page");
}

constexpr Command Commands[] = {
    {"expect", "NAME VALUE", 2, 2, RunExpect},
    {"expect-near", "NAME NUMBER TOLERANCE", 3, 3, RunExpectNear},
    {"expect-has", "NAME VALUE", 2, 2, RunExpectHas},
    {"expect-not", "NAME VALUE", 2, 2, RunExpectNot},
    {"box", "VALUE", 1, 1, RunBox},
    {"box-has", "VALUE", 1, 1, RunBoxHas},
    {"no-box", "", 0, 0, RunNoBox},
    {"file", "NAME VALUE...", 2, AnyNumber, RunFile},
    {"file-has", "NAME VALUE", 2, 2, RunFileHas},
    {"file-not", "NAME VALUE", 2, 2, RunFileNot},
    {"no-file", "NAME", 1, 1, RunNoFile},
    {"lines", "NAME NUMBER", 2, 2, RunLines},
    {"ran", "VALUE", 1, 1, RunRan},
    {"ran-none", "", 0, 0, RunRanNone},
    {"beeps", "NUMBER", 1, 1, RunBeeps},
    {"pixel", "SURFACE X Y COLOUR", 4, 4, RunPixel},
    {"printed", "SURFACE VALUE X Y TOLERANCE", 5, 5, RunPrinted},
    {"clipboard", "WIDTH HEIGHT", 2, 2, RunClipboard},
    {"no-clipboard", "", 0, 0, RunNoClipboard},
    {"pages", "NUMBER", 1, 1, RunPages},
    {"page-has", "VALUE", 1, 1, RunPageHas},
    {"ended", "yes|no", 1, 1, RunEnded},
};

}  // namespace

std::span<const Command> CommandsOfExpectations() { return Commands; }

}  // namespace cumeron
