#include "properties.h"

#include <type_traits>

namespace cumeron {

namespace {

template <class Object>
struct Property {
    const char* name;
    std::optional<Value> (*get)(Object);
};

// The field that get names, of those kinds of controls that have it.
template <class Get>
std::optional<Value> FieldOf(const AnyControl& control, Get get) {
    return std::visit(
        [&](auto* record) -> std::optional<Value> {
            if constexpr (std::is_invocable_v<Get, decltype(*record)>) {
                return LoadValue(get(*record));
            } else {
                return std::nullopt;
            }
        },
        control);
}

#define FIELD(name)                                                                   \
    {                                                                                 \
#name, [](const AnyControl& control) {                                              \
            return FieldOf(control, [](auto& record) -> decltype((record.name)) {           \
                return record.name;                                                         \
            });                                                                             \
        } \
    }

const Timer* TimerOf(const AnyControl& control) {
    const auto* timer = std::get_if<Timer*>(&control);
    return timer ? *timer : nullptr;
}

const Surface* SurfaceOf(const AnyControl& control) {
    const auto* surface = std::get_if<Surface*>(&control);
    return surface ? *surface : nullptr;
}

std::optional<Value> EnabledOf(const AnyControl& control) {
    if (const Timer* timer = TimerOf(control)) return timer->Enabled();
    return SeenControl(control)->Enabled;
}

// In pixels when the surface has no scale of its own.
std::optional<Value> ScaleWidthOf(const AnyControl& control) {
    const Surface* surface = SurfaceOf(control);
    if (!surface) return std::nullopt;
    return surface->ScaleMode == 0 ? surface->ScaleWidth : surface->PixelWidth();
}

std::optional<Value> ScaleHeightOf(const AnyControl& control) {
    const Surface* surface = SurfaceOf(control);
    if (!surface) return std::nullopt;
    return surface->ScaleMode == 0 ? surface->ScaleHeight : surface->PixelHeight();
}

std::optional<Value> ListCountOf(const AnyControl& control) {
    auto* const* list = std::get_if<ComboBox*>(&control);
    if (!list) return std::nullopt;
    return static_cast<std::int64_t>((*list)->Items.size());
}

const Property<const AnyControl&> ControlProperties[] = {
    FIELD(Caption),
    FIELD(Text),
    FIELD(Value),
    FIELD(Checked),
    {"Enabled", EnabledOf},
    FIELD(Visible),
    FIELD(ForeColor),
    FIELD(BackColor),
    FIELD(ToolTipText),
    FIELD(Left),
    FIELD(Top),
    FIELD(Width),
    FIELD(Height),
    {"ScaleWidth", ScaleWidthOf},
    {"ScaleHeight", ScaleHeightOf},
    FIELD(ListIndex),
    {"ListCount", ListCountOf},
    FIELD(Drive),
    FIELD(Path),
    FIELD(Selected),
    FIELD(Mask),
    FIELD(SelStart),
    FIELD(Picture),
    FIELD(FontSize),
    FIELD(FontName),
    FIELD(Bold),
    FIELD(MultiLine),
    FIELD(Interval),
    FIELD(DrawMode),
    FIELD(DrawWidth),
    FIELD(DrawStyle),
    FIELD(ScaleMode),
    FIELD(ScaleLeft),
    FIELD(ScaleTop),
    FIELD(CurrentX),
    FIELD(CurrentY),
};

#undef FIELD

#define FIELD(name, expression)                                                                   \
    {                                                                                             \
        name, [](const Form& form) -> std::optional<Value> { return LoadValue(form.expression); } \
    }

const Property<const Form&> FormProperties[] = {
    FIELD("Caption", Caption),
    FIELD("Visible", Visible),
    FIELD("Enabled", Enabled),
    FIELD("TopMost", TopMost),
    FIELD("Left", Left),
    FIELD("Top", Top),
    FIELD("Width", Width),
    FIELD("Height", Height),
    FIELD("ScaleWidth", ScaleWidth()),
    FIELD("ScaleHeight", ScaleHeight()),
    FIELD("Icon", Icon),
    FIELD("Loaded", Loaded),
    FIELD("WindowState", WindowState),
    FIELD("MousePointer", MousePointer),
};

#undef FIELD

#define FIELD(name, expression)                                                                   \
    {                                                                                             \
        name, [](SerialLine& line) -> std::optional<Value> { return LoadValue(line.expression); } \
    }

const Property<SerialLine&> LineProperties[] = {
    FIELD("PortOpen", PortOpen()),         FIELD("CommPort", CommPort()),
    FIELD("Settings", Settings()),         FIELD("RThreshold", RThreshold),
    FIELD("SThreshold", SThreshold),       FIELD("InputLen", InputLen),
    FIELD("ParityReplace", ParityReplace), FIELD("InBufferCount", InBufferCount()),
    FIELD("CDHolding", CDHolding()),       FIELD("CommEvent", CommEvent),
    FIELD("DTREnable", DTREnable()),       FIELD("RTSEnable", RTSEnable()),
};

#undef FIELD

#define FIELD(name, expression)                                                                    \
    {                                                                                              \
        name,                                                                                      \
            [](Printer& printer) -> std::optional<Value> { return LoadValue(printer.expression); } \
    }
#define SETTING(name)                                                  \
    {                                                                  \
#name, [](Printer & printer) -> std::optional < Value>         \
        { return LoadValue(printer.Property(PrinterProperty::name)); } \
    }

const Property<Printer&> PrinterProperties[] = {
    FIELD("DeviceName", Identity().DeviceName),
    FIELD("DriverName", Identity().DriverName),
    FIELD("Port", Identity().Port),
    FIELD("ScaleMode", ScaleMode),
    FIELD("ScaleWidth", ScaleWidth()),
    FIELD("ScaleHeight", ScaleHeight()),
    FIELD("FontSize", FontSize),
    SETTING(Orientation),
    SETTING(PaperSize),
    SETTING(Duplex),
    SETTING(Copies),
    SETTING(ColorMode),
};

#undef SETTING
#undef FIELD

struct SettableProperty {
    const char* name;
    PrinterProperty property;
};

constexpr SettableProperty SettableProperties[] = {
    {"Orientation", PrinterProperty::Orientation}, {"PaperSize", PrinterProperty::PaperSize},
    {"Duplex", PrinterProperty::Duplex},           {"Copies", PrinterProperty::Copies},
    {"ColorMode", PrinterProperty::ColorMode},
};

template <class Table, class Object>
std::optional<Value> Find(const Table& table, Object& object, const std::string& name) {
    for (const auto& property : table) {
        if (property.name == name) return property.get(object);
    }
    return std::nullopt;
}

template <class Table, class Object>
std::vector<std::string> Known(const Table& table, Object& object) {
    std::vector<std::string> names;
    for (const auto& property : table) {
        if (property.get(object)) names.emplace_back(property.name);
    }
    return names;
}

struct Kind {
    const char* name;
    const char* defaultProperty;
};

// In the order of AnyControl.
constexpr Kind Kinds[] = {
    {"Label", "Caption"},      {"Frame", "Caption"},      {"Button", "Caption"},
    {"MenuEntry", "Checked"},  {"ToolButton", "Value"},   {"Panel", "Text"},
    {"Image", "Picture"},      {"TextBox", "Text"},       {"Surface", ""},
    {"Timer", "Enabled"},      {"OptionButton", "Value"}, {"CheckBox", "Value"},
    {"ComboBox", "ListIndex"}, {"DriveList", "Drive"},    {"FolderList", "Path"},
    {"TabStrip", "Selected"},
};
static_assert(std::size(Kinds) == std::variant_size_v<AnyControl>, "a kind of control is missing");

}  // namespace

std::optional<Value> PropertyOf(const AnyControl& control, const std::string& property) {
    return Find(ControlProperties, control, property);
}
std::optional<Value> PropertyOf(const Form& form, const std::string& property) {
    return Find(FormProperties, form, property);
}
std::optional<Value> PropertyOf(SerialLine& line, const std::string& property) {
    return Find(LineProperties, line, property);
}
std::optional<Value> PropertyOf(Printer& printer, const std::string& property) {
    return Find(PrinterProperties, printer, property);
}

std::optional<PrinterProperty> PrinterPropertyOf(const std::string& name) {
    for (const SettableProperty& settable : SettableProperties) {
        if (settable.name == name) return settable.property;
    }
    return std::nullopt;
}

std::string PrinterPropertyNames() {
    std::string names;
    for (const SettableProperty& settable : SettableProperties) {
        names += (names.empty() ? "" : ", ") + std::string(settable.name);
    }
    return names;
}

std::string DefaultProperty(const AnyControl& control) {
    return Kinds[control.index()].defaultProperty;
}

std::string KindOf(const AnyControl& control) { return Kinds[control.index()].name; }

std::vector<std::string> PropertiesOf(const AnyControl& control) {
    return Known(ControlProperties, control);
}
std::vector<std::string> PropertiesOf(const Form& form) { return Known(FormProperties, form); }
std::vector<std::string> PropertiesOf(SerialLine& line) { return Known(LineProperties, line); }
std::vector<std::string> PropertiesOf(Printer& printer) {
    return Known(PrinterProperties, printer);
}

Control* SeenControl(const AnyControl& control) {
    return std::visit(
        [](auto* record) -> Control* {
            if constexpr (std::is_base_of_v<Control, std::remove_reference_t<decltype(*record)>>) {
                return record;
            } else {
                return nullptr;
            }
        },
        control);
}

}  // namespace cumeron
