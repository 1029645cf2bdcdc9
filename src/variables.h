// The names by which cumeron-drive reads and sets the program's variables. Each module lists its
// own in one procedure, so that a new variable is one line; the settings come from their table.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/runtime/errors.h"

namespace cumeron {

struct Workstation;

struct DateValue {
    double when;
};
using Value = std::variant<std::string, std::int64_t, double, bool, DateValue>;

// indices are the numbers in brackets, outermost first: ProfileRing(3).Profile(10) is the name
// "ProfileRing.Profile" with {3, 10}. Both raise 9 for an index outside.
struct Variable {
    std::string name;
    int indexCount;
    std::function<Value(Workstation&, const std::vector<long>& indices)> get;
    // Empty when it cannot be set.
    std::function<void(Workstation&, const std::vector<long>& indices, const Value&)> set;
};

// A function that can be asked and changes nothing: SkyAmountText(amount). Arguments come as they
// stand in the text, without their quotes; what depends on the model asks the workstation.
struct AskableFunction {
    std::string name;
    int argumentCount;
    std::function<Value(Workstation&, const std::vector<std::string>& arguments)> call;
};

struct VariableList {
    std::vector<Variable> variables;
    std::vector<AskableFunction> functions;

    // For a field of any module: list.Add("MessageId", [](Workstation& w) -> auto& { return
    // w.intake.MessageId; });
    template <class Place>
    void Add(std::string name, Place place);
    // The same for a date-time.
    template <class Place>
    void AddDate(std::string name, Place place);
    // For an array or vector; element by one index.
    template <class Place>
    void AddArray(std::string name, Place place);
};

// Number, text or bool from any value; raise 13 when it cannot be.
std::int64_t AsInteger(const Value& value);
double AsDouble(const Value& value);
std::string AsText(const Value& value);

// Every name of every module.
VariableList ListVariables();

void ListSettings(VariableList& list);
void ListIntakeVariables(VariableList& list);
void ListReadingsVariables(VariableList& list);
void ListGraphVariables(VariableList& list);
void ListLoggingVariables(VariableList& list);
void ListOfflineVariables(VariableList& list);
void ListShellVariables(VariableList& list);
void ListTerminalVariables(VariableList& list);

// Raises 6 for a number that does not fit.
template <class T>
void StoreValue(T& place, const Value& value) {
    if constexpr (std::is_same_v<T, std::string>) {
        place = AsText(value);
    } else if constexpr (std::is_floating_point_v<T>) {
        place = static_cast<T>(AsDouble(value));
    } else if constexpr (std::is_same_v<T, bool>) {
        place = AsInteger(value) != 0;
    } else {
        const std::int64_t integer = AsInteger(value);
        if (!std::in_range<T>(integer)) throw RuntimeError(6);
        place = static_cast<T>(integer);
    }
}

template <class T>
Value LoadValue(const T& place) {
    if constexpr (std::is_same_v<T, std::string>) {
        return place;
    } else if constexpr (std::is_same_v<T, bool>) {
        return place;
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<double>(place);
    } else {
        return static_cast<std::int64_t>(place);
    }
}

// Raises 9.
void CheckIndex(long index, std::size_t size);

template <class Place>
void VariableList::Add(std::string name, Place place) {
    variables.push_back(
        {std::move(name), 0,
         [place](Workstation& w, const std::vector<long>&) { return LoadValue(place(w)); },
         [place](Workstation& w, const std::vector<long>&, const Value& value) {
             StoreValue(place(w), value);
         }});
}

template <class Place>
void VariableList::AddDate(std::string name, Place place) {
    variables.push_back(
        {std::move(name), 0,
         [place](Workstation& w, const std::vector<long>&) -> Value { return DateValue{place(w)}; },
         [place](Workstation& w, const std::vector<long>&, const Value& value) {
             place(w) = AsDouble(value);
         }});
}

template <class Place>
void VariableList::AddArray(std::string name, Place place) {
    variables.push_back(
        {std::move(name), 1,
         [place](Workstation& w, const std::vector<long>& indices) {
             auto& array = place(w);
             CheckIndex(indices[0], array.size());
             return LoadValue(array[static_cast<std::size_t>(indices[0])]);
         },
         [place](Workstation& w, const std::vector<long>& indices, const Value& value) {
             auto& array = place(w);
             CheckIndex(indices[0], array.size());
             StoreValue(array[static_cast<std::size_t>(indices[0])], value);
         }});
}

}  // namespace cumeron
