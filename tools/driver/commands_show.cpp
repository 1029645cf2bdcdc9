// What other programs read: one JSON value a line, bytes above 127 as \u0080 to \u00ff.
#include <fstream>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "names.h"
#include "pictures.h"
#include "properties.h"
#include "values.h"

namespace cumeron {

namespace {

using nlohmann::json;

// One character per byte.
std::string ToUtf8(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xC0 | (byte >> 6));
            text += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return text;
}

void Print(Session& session, const json& value) {
    constexpr bool asciiOnly = true;
    session.out << value.dump(-1, ' ', asciiOnly) << '\n';
}

json JsonOf(const Value& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) return *integer;
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth;
    const auto* date = std::get_if<DateValue>(&value);
    if (date && date->when < 1) return date->when;
    return ToUtf8(AsText(value));
}

template <class Texts>
json JsonOfTexts(const Texts& texts) {
    json array = json::array();
    for (const std::string& text : texts) array.push_back(ToUtf8(text));
    return array;
}

void RunShow(Session& session, const Words& arguments) {
    Print(session, JsonOf(ValueOf(session, arguments[0])));
}

void RunShowFile(Session& session, const Words& arguments) {
    const auto content = session.machine.files.Content(ProgramFileName(session, arguments[0]));
    if (!content) throw CommandError{"no file " + arguments[0]};
    Print(session, ToUtf8(*content));
}

void RunShowFiles(Session& session, const Words&) {
    Print(session, JsonOfTexts(session.machine.files.Names()));
}

void RunShowBoxes(Session& session, const Words&) {
    Print(session, JsonOfTexts(session.machine.dialogs.Boxes()));
}

void RunShowSent(Session& session, const Words&) {
    Print(session, ToUtf8(session.machine.line.Sent()));
}

void RunShowRan(Session& session, const Words&) {
    Print(session, JsonOfTexts(session.machine.process.started));
}

void RunShowProfile(Session& session, const Words&) {
    const Workstation& w = session.Program();
    CheckIndex(w.graphs.ProfileSlot, w.graphs.ProfileRing.size());
    const auto& slot = w.graphs.ProfileRing[static_cast<std::size_t>(w.graphs.ProfileSlot)];
    const auto length = static_cast<std::size_t>(w.model.ProfileLength) + 1;
    json array = json::array();
    for (std::size_t i = 0; i < length && i < slot.Profile.size(); ++i) {
        array.push_back(slot.Profile[i]);
    }
    Print(session, array);
}

void RunShowColumn(Session& session, const Words& arguments) {
    const Surface& surface = FindSurface(session, arguments[0]);
    const int x = IntegerArgument(arguments[1]);
    if (x < 0 || x >= surface.PixelWidth()) throw CommandError{"no column " + arguments[1]};
    json runs = json::array();
    for (int y = 0; y < surface.PixelHeight(); ++y) {
        const int colour = surface.Pixel(x, y);
        if (!runs.empty() && runs.back()[0] == colour) {
            runs.back()[1] = runs.back()[1].get<int>() + 1;
        } else {
            runs.push_back({colour, 1});
        }
    }
    Print(session, runs);
}

void RunShowPrinted(Session& session, const Words& arguments) {
    json array = json::array();
    for (const PrintedText& printed : FindSurface(session, arguments[0]).Printed()) {
        array.push_back({{"text", ToUtf8(printed.text)},
                         {"x", printed.x},
                         {"y", printed.y},
                         {"colour", printed.colour}});
    }
    Print(session, array);
}

json JsonOf(const PageText& text) {
    return {{"text", ToUtf8(text.text)}, {"x", text.x}, {"y", text.y}, {"size", text.points}};
}

json JsonOf(const PagePicture& picture) {
    return {{"picture", {picture.pixelWidth, picture.pixelHeight}},
            {"x", picture.x},
            {"y", picture.y},
            {"width", picture.width},
            {"height", picture.height}};
}

void RunShowPage(Session& session, const Words&) {
    const auto& page = session.machine.printer.LastPage();
    if (!page) throw CommandError{"no page was printed"};
    json operations = json::array();
    for (const PageOperation& operation : page->operations) {
        operations.push_back(std::visit([](const auto& one) { return JsonOf(one); }, operation));
    }
    Print(session, {{"orientation", page->orientation},
                    {"width", page->width},
                    {"height", page->height},
                    {"operations", operations}});
}

void RunShowNames(Session& session, const Words& arguments) {
    json array = json::array();
    for (const NamedControl& named : FindForm(session, arguments[0]).Controls()) {
        array.push_back({{"name", NameOf(named)}, {"kind", KindOf(named.control)}});
    }
    Print(session, array);
}

void RunPicture(Session& session, const Words& arguments) {
    const bool png = arguments[1].ends_with(".png");
    if (!png && !arguments[1].ends_with(".ppm")) {
        throw CommandError{"only pictures whose names end with .png or .ppm can be written"};
    }
    const Surface& surface = FindSurface(session, arguments[0]);
    if (surface.PixelWidth() < 1 || surface.PixelHeight() < 1) {
        throw CommandError{arguments[0] + " has no pixels"};
    }
    const std::string path = session.HostPath(arguments[1]);
    std::ofstream file(path, std::ios::binary);
    file << (png ? PngOf(surface) : PpmOf(surface));
    file.close();
    if (!file) throw CommandError{"cannot write the host file " + path};
}

void RunEcho(Session& session, const Words& arguments) {
    std::string text;
    for (const std::string& word : arguments) text += (text.empty() ? "" : " ") + word;
    session.out << text << '\n';
}

constexpr Command Commands[] = {
    {"show", "NAME", 1, 1, RunShow},
    {"show-file", "NAME", 1, 1, RunShowFile},
    {"show-files", "", 0, 0, RunShowFiles},
    {"show-boxes", "", 0, 0, RunShowBoxes},
    {"show-sent", "", 0, 0, RunShowSent},
    {"show-ran", "", 0, 0, RunShowRan},
    {"show-profile", "", 0, 0, RunShowProfile},
    {"show-column", "SURFACE X", 2, 2, RunShowColumn},
    {"show-printed", "SURFACE", 1, 1, RunShowPrinted},
    {"show-page", "", 0, 0, RunShowPage},
    {"show-names", "FORM", 1, 1, RunShowNames},
    {"picture", "SURFACE HOSTFILE", 2, 2, RunPicture},
    {"echo", "VALUE...", 1, AnyNumber, RunEcho},
};

}  // namespace

std::span<const Command> CommandsOfShowing() { return Commands; }

}  // namespace cumeron
