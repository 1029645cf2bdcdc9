#include "names.h"

#include <algorithm>
#include <optional>

#include "platform/runtime/text.h"
#include "properties.h"
#include "values.h"

namespace cumeron {

namespace {

// One word of a name between points, with the numbers in its brackets: "ProfileRing(3)".
struct Segment {
    std::string word;
    std::vector<long> indices;
};

struct ParsedName {
    std::vector<Segment> segments;

    std::string WithoutIndices() const {
        std::string text;
        for (const Segment& segment : segments) text += (text.empty() ? "" : ".") + segment.word;
        return text;
    }
    std::vector<long> Indices() const {
        std::vector<long> all;
        for (const Segment& segment : segments) {
            all.insert(all.end(), segment.indices.begin(), segment.indices.end());
        }
        return all;
    }
    ParsedName From(std::size_t first) const {
        return {{segments.begin() + static_cast<long>(first), segments.end()}};
    }
};

[[noreturn]] void MalformedName(const std::string& name) {
    throw CommandError{"malformed name " + name};
}

Segment ParseSegment(const std::string& text, const std::string& name) {
    const std::size_t open = text.find('(');
    Segment segment{text.substr(0, open), {}};
    if (segment.word.empty()) MalformedName(name);
    if (open == std::string::npos) return segment;
    if (text.back() != ')') MalformedName(name);
    std::string number;
    for (std::size_t i = open + 1; i < text.size(); ++i) {
        if (text[i] == ',' || text[i] == ')') {
            if (!IsNumeric(number)) MalformedName(name);
            segment.indices.push_back(ToInt32(number));
            number.clear();
        } else {
            number += text[i];
        }
    }
    return segment;
}

ParsedName ParseName(const std::string& name) {
    ParsedName parsed;
    std::string segment;
    int brackets = 0;
    for (const char c : name + ".") {
        brackets += c == '(' ? 1 : c == ')' ? -1 : 0;
        if (c == '.' && brackets == 0) {
            parsed.segments.push_back(ParseSegment(segment, name));
            segment.clear();
        } else {
            segment += c;
        }
    }
    if (!segment.empty()) MalformedName(name);
    return parsed;
}

Form* SearchForm(Session& session, const std::string& name) {
    for (Form* form : session.Program().Forms()) {
        if (form->Name == name) return form;
    }
    return nullptr;
}

bool IsOnBar(const NamedControl& named) {
    return std::holds_alternative<ToolButton*>(named.control) ||
           std::holds_alternative<Panel*>(named.control);
}

// How many segments name the control, 0 when it is another one. place counts the elements of an
// array that the form gives no numbers of its own.
std::size_t SegmentsThatName(const NamedControl& named, const ParsedName& parsed, long place) {
    const std::vector<Segment>& segments = parsed.segments;
    if (IsOnBar(named)) {
        const bool same = segments.size() >= 2 && segments[0].word == named.parent &&
                          segments[1].word == named.name;
        return same ? 2 : 0;
    }
    if (segments[0].word != named.name) return 0;
    const std::vector<long>& indices = segments[0].indices;
    if (indices.empty()) return named.index < 0 && place == 0 ? 1 : 0;
    const long index = named.index >= 0 ? named.index : place;
    return indices.size() == 1 && indices[0] == index ? 1 : 0;
}

std::optional<FoundControl> SearchIn(Form& form, const ParsedName& parsed) {
    long place = 0;
    for (const NamedControl& named : form.Controls()) {
        const std::size_t used = SegmentsThatName(named, parsed, place);
        if (named.name == parsed.segments[0].word) ++place;
        if (used > 0) return FoundControl{&form, named, parsed.From(used).WithoutIndices()};
    }
    return std::nullopt;
}

std::string Listed(std::vector<std::string> names) {
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::string text;
    for (const std::string& name : names) text += " " + name;
    return text;
}

// Names that begin like the unknown one.
std::string Similar(const std::vector<std::string>& names, const std::string& unknown) {
    const std::string beginning = LowerCase(unknown.substr(0, 4));
    std::vector<std::string> similar;
    for (const std::string& name : names) {
        if (LowerCase(name).starts_with(beginning)) similar.push_back(name);
    }
    return similar.empty() ? "" : "; known are" + Listed(similar);
}

std::vector<std::string> ControlNames(Form& form) {
    std::vector<std::string> names;
    for (const NamedControl& named : form.Controls()) names.push_back(NameOf(named));
    return names;
}

std::vector<std::string> AllNames(Session& session) {
    std::vector<std::string> names = ControlNames(session.Program().frmMain);
    for (const Form* form : session.Program().Forms()) names.push_back(form->Name);
    for (const Variable& variable : session.variables.variables) names.push_back(variable.name);
    for (const AskableFunction& function : session.variables.functions) {
        names.push_back(function.name);
    }
    return names;
}

const Variable* SearchVariable(const Session& session, const ParsedName& parsed) {
    const std::string name = parsed.WithoutIndices();
    for (const Variable& variable : session.variables.variables) {
        if (variable.name != name) continue;
        const auto count = static_cast<std::size_t>(variable.indexCount);
        if (parsed.Indices().size() != count) {
            throw CommandError{name + " takes " + std::to_string(count) + " numbers in brackets"};
        }
        return &variable;
    }
    return nullptr;
}

// The words between the brackets, cut at the commas outside quotes.
std::vector<std::string> Arguments(const std::string& text) {
    std::vector<std::string> arguments{""};
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"' && (i == 0 || text[i - 1] != '\\')) quoted = !quoted;
        if (text[i] == ',' && !quoted) {
            arguments.emplace_back();
        } else {
            arguments.back() += text[i];
        }
    }
    for (std::string& argument : arguments) argument = Unquoted(Trim(argument));
    return arguments;
}

std::optional<Value> CallFunction(Session& session, const std::string& name) {
    const std::size_t open = name.find('(');
    if (open == std::string::npos || !name.ends_with(')')) return std::nullopt;
    for (const AskableFunction& function : session.variables.functions) {
        if (function.name != name.substr(0, open)) continue;
        const auto arguments = Arguments(name.substr(open + 1, name.size() - open - 2));
        if (arguments.size() != static_cast<std::size_t>(function.argumentCount)) {
            throw CommandError{function.name + " takes " + std::to_string(function.argumentCount) +
                               " arguments"};
        }
        return function.call(session.Program(), arguments);
    }
    return std::nullopt;
}

Value ValueOfControl(const FoundControl& found) {
    const std::string property =
        found.property.empty() ? DefaultProperty(found.named.control) : found.property;
    const auto value = PropertyOf(found.named.control, property);
    if (value) return *value;
    throw CommandError{(property.empty() ? "a property of " + NameOf(found.named) + " is wanted"
                                         : "unknown property " + property) +
                       "; known are" + Listed(PropertiesOf(found.named.control))};
}

Value ValueOfLine(SerialLine& line, const ParsedName& rest) {
    const std::string property =
        rest.segments.empty() ? std::string("PortOpen") : rest.WithoutIndices();
    if (const auto value = PropertyOf(line, property)) return *value;
    throw CommandError{"unknown property " + property + "; known are" + Listed(PropertiesOf(line))};
}

Value ValueOfPrinter(Printer& printer, const ParsedName& rest) {
    const std::string property =
        rest.segments.empty() ? std::string("DeviceName") : rest.WithoutIndices();
    if (const auto value = PropertyOf(printer, property)) return *value;
    throw CommandError{"unknown property " + property + "; known are" +
                       Listed(PropertiesOf(printer))};
}

[[noreturn]] void UnknownControl(Form& form, const ParsedName& rest) {
    std::vector<std::string> known = ControlNames(form);
    for (const std::string& property : PropertiesOf(form)) known.push_back(property);
    throw CommandError{"unknown name " + form.Name + "." + rest.WithoutIndices() +
                       Similar(known, rest.segments[0].word)};
}

[[noreturn]] void UnknownName(Session& session, const std::string& name) {
    throw CommandError{"unknown name " + name + Similar(AllNames(session), name)};
}

}  // namespace

std::string NameOf(const NamedControl& named) {
    const std::string name = IsOnBar(named) ? named.parent + "." + named.name : named.name;
    return named.index < 0 ? name : name + "(" + std::to_string(named.index) + ")";
}

std::optional<FoundControl> SearchControl(Session& session, const std::string& name) {
    const ParsedName parsed = ParseName(name);
    Form* form = SearchForm(session, parsed.segments[0].word);
    if (!form) return SearchIn(session.Program().frmMain, parsed);
    const ParsedName rest = parsed.From(1);
    if (rest.segments.empty()) throw CommandError{name + " is a form, and no control"};
    if (auto found = SearchIn(*form, rest)) return found;
    UnknownControl(*form, rest);
}

FoundControl FindControl(Session& session, const std::string& name) {
    if (auto found = SearchControl(session, name)) return *found;
    throw CommandError{"unknown control " + name +
                       Similar(ControlNames(session.Program().frmMain), name)};
}

Form& FindForm(Session& session, const std::string& name) {
    if (Form* form = SearchForm(session, name)) return *form;
    std::vector<std::string> known;
    for (const Form* form : session.Program().Forms()) known.push_back(form->Name);
    throw CommandError{"unknown form " + name + "; known are" + Listed(known)};
}

Surface& FindSurface(Session& session, const std::string& name) {
    const FoundControl found = FindControl(session, name);
    auto* const* surface = std::get_if<Surface*>(&found.named.control);
    if (!surface || !found.property.empty()) throw CommandError{name + " is no surface"};
    return **surface;
}

Value ValueOf(Session& session, const std::string& name) {
    Workstation& w = session.Program();
    if (const auto result = CallFunction(session, name)) return *result;
    const ParsedName parsed = ParseName(name);
    if (Form* form = SearchForm(session, parsed.segments[0].word)) {
        const ParsedName rest = parsed.From(1);
        if (!rest.segments.empty()) {
            if (const auto found = SearchIn(*form, rest)) return ValueOfControl(*found);
        }
        const std::string property = rest.segments.empty() ? "Caption" : rest.WithoutIndices();
        if (const auto value = PropertyOf(*form, property)) return *value;
        UnknownControl(*form, rest);
    }
    if (parsed.segments[0].word == "comCTLine") return ValueOfLine(w.comCTLine(), parsed.From(1));
    if (parsed.segments[0].word == "Printer") {
        return ValueOfPrinter(w.platform.printer, parsed.From(1));
    }
    if (const auto found = SearchIn(w.frmMain, parsed)) return ValueOfControl(*found);
    if (const Variable* variable = SearchVariable(session, parsed)) {
        return variable->get(w, parsed.Indices());
    }
    UnknownName(session, name);
}

void StoreVariable(Session& session, const std::string& name, const std::string& text) {
    Workstation& w = session.Program();
    const ParsedName parsed = ParseName(name);
    const Variable* variable = SearchVariable(session, parsed);
    if (!variable) UnknownName(session, name);
    if (!variable->set) throw CommandError{name + " cannot be set"};
    const std::vector<long> indices = parsed.Indices();
    variable->set(w, indices, ValueToStore(variable->get(w, indices), text));
}

std::string ProgramFileName(const Session& session, const std::string& name) {
    const std::string lower = LowerCase(name);
    const bool bare = name.find_first_of("\\/:") == std::string::npos;
    if (!bare || !lower.starts_with("cumeron") || !lower.ends_with(".ini")) return name;
    const MemoryFiles& files = session.machine.files;
    return files.SettingsFolder() + (files.Style() == PathStyle::Windows ? "\\" : "/") + name;
}

}  // namespace cumeron
