#include "Property.h"

#include <algorithm>
#include <charconv>

namespace form_designer {
namespace {

// The presets are the widgets' own: a file that does not set them means the same to any client.

constexpr int most_pixels = 5000;
constexpr int most_slots = 50;
constexpr int most_spring = 1000;

// In the order of the X protocol, which counts from 1.
constexpr const char *gravities[] = {"NorthWest", "North",     "NorthEast", "West",     "Center",
                                     "East",      "SouthWest", "South",     "SouthEast"};
// In the order of the toolkit, which counts from 1 as well.
constexpr const char *orientations[] = {"vertical", "horizontal"};

constexpr Property of_form[] = {
    {.name = "numRows", .least = 1, .most = most_slots, .preset = "1"},
    {.name = "numColumns", .least = 1, .most = most_slots, .preset = "1"},
    {.name = "defaultSpacing", .least = 0, .most = 100, .preset = "4"},
};

constexpr Property in_grid[] = {
    {.name = "row", .least = 0, .most = most_slots - 1},
    {.name = "column", .least = 0, .most = most_slots - 1},
    {.name = "gravity", .type = Type::Choice, .choices = gravities, .preset = "NorthWest"},
    {.name = "resizeHorizontal", .type = Type::Flag, .preset = "True"},
    {.name = "resizeVertical", .type = Type::Flag, .preset = "True"},
    {.name = "width", .least = 1, .most = most_pixels, .optional = true},
    {.name = "height", .least = 1, .most = most_pixels, .optional = true},
};

constexpr Property in_spring_box[] = {
    {.name = "leftSpring", .least = 0, .most = most_spring, .preset = "50"},
    {.name = "rightSpring", .least = 0, .most = most_spring, .preset = "50"},
    {.name = "topSpring", .least = 0, .most = most_spring, .preset = "50"},
    {.name = "bottomSpring", .least = 0, .most = most_spring, .preset = "50"},
    {.name = "horizontalSpring", .least = 0, .most = most_spring, .preset = "0"},
    {.name = "verticalSpring", .least = 0, .most = most_spring, .preset = "0"},
};

constexpr Property of_spring_box[] = {
    {.name = "orientation", .type = Type::Choice, .choices = orientations, .preset = "horizontal"},
    {.name = "minSpacing", .least = 0, .most = 100, .preset = "2"},
};

constexpr Property in_rubber_board[] = {
    {.name = "initialX", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "initialY", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "initialWidth", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "initialHeight", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "finalX", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "finalY", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "finalWidth", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "finalHeight", .least = 0, .most = most_pixels, .preset = "0"},
};

constexpr Property of_rubber_board[] = {
    {.name = "initialParentWidth", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "initialParentHeight", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "finalParentWidth", .least = 0, .most = most_pixels, .preset = "0"},
    {.name = "finalParentHeight", .least = 0, .most = most_pixels, .preset = "0"},
};

constexpr Kind form_kind = {
    .class_name = "XmGrid", .title = "Form", .own = of_form, .of_children = in_grid};

constexpr Kind kinds[] = {
    {.class_name = "XmLabel", .title = "Label", .has_label = true},
    {.class_name = "XmPushButton", .title = "Button", .has_label = true},
    {.class_name = "XmToggleButton", .title = "Toggle", .has_label = true},
    {.class_name = "XmTextField", .title = "Text field"},
    {.class_name = "XmScrollBar", .title = "Scroll bar"},
    {.class_name = "XmSpringBox",
     .title = "Spring box",
     .own = of_spring_box,
     .of_children = in_spring_box},
    {.class_name = "XmRubberBoard",
     .title = "Rubber board",
     .own = of_rubber_board,
     .of_children = in_rubber_board},
};

constexpr Property label_property = {.name = "labelString", .type = Type::Text};

std::string ListOf(std::span<const char *const> words) {
    std::string list;
    for (const char *word : words)
        list += (list.empty() ? "" : ", ") + std::string(word);
    return list;
}

} // namespace

std::span<const Kind> Kinds() {
    return kinds;
}

const Kind *FindKind(std::string_view class_name) {
    const auto *found = std::ranges::find(kinds, class_name, &Kind::class_name);
    return found == std::end(kinds) ? nullptr : found;
}

const Kind &FormKind() {
    return form_kind;
}

const Property &LabelProperty() {
    return label_property;
}

std::optional<int> ChoiceOf(const Property &property, std::string_view value) {
    const auto found = std::ranges::find(property.choices, value);
    return found == property.choices.end()
               ? std::nullopt
               : std::optional(static_cast<int>(found - property.choices.begin()));
}

std::optional<int> NumberOf(std::string_view value) {
    int number = 0;
    const auto [end, error] = std::from_chars(value.begin(), value.end(), number);
    return error == std::errc{} && end == value.end() ? std::optional(number) : std::nullopt;
}

bool IsTrue(std::string_view flag) {
    return flag == "True";
}

std::optional<std::string> ProblemWith(const Property &property, const std::string &value) {
    switch (property.type) {
    case Type::Number: {
        const auto number = NumberOf(value);
        if (number && *number >= property.least && *number <= property.most)
            return std::nullopt;
        return "must be a whole number from " + std::to_string(property.least) + " to " +
               std::to_string(property.most);
    }
    case Type::Flag:
        return value == "True" || value == "False" ? std::nullopt
                                                   : std::optional("must be True or False");
    case Type::Choice:
        return ChoiceOf(property, value)
                   ? std::nullopt
                   : std::optional("must be one of " + ListOf(property.choices));
    case Type::Text:
        return value.find('\0') == std::string::npos ? std::nullopt
                                                     : std::optional("must not hold a zero byte");
    }
    return std::nullopt;
}

} // namespace form_designer
