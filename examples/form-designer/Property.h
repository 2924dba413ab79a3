#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace form_designer {

enum class Type { Number, Flag, Choice, Text };

// A resource that the user may set. Its value is kept as text, as a resource file has it.
struct Property {
    const char *name;
    Type type = Type::Number;
    int least = 0;
    int most = 0;
    std::span<const char *const> choices = {};
    const char *preset = ""; // empty: the widget decides
    bool optional = false;   // may be taken back, by an empty value
};

// What a widget of the form can be.
struct Kind {
    const char *class_name;
    const char *title;
    bool has_label = false;
    // Of the widget itself, if it holds others, and of those that it holds.
    std::span<const Property> own = {};
    std::span<const Property> of_children = {};

    bool IsContainer() const { return !of_children.empty(); }
};

std::span<const Kind> Kinds();
const Kind *FindKind(std::string_view class_name);
// The form itself, which is an XmGrid.
const Kind &FormKind();
// Of each widget with a label.
const Property &LabelProperty();

// The number that a choice's text stands for: its place, counted from 0.
std::optional<int> ChoiceOf(const Property &property, std::string_view value);
std::optional<int> NumberOf(std::string_view value);
bool IsTrue(std::string_view flag);

// What is wrong with the value, as the end of a sentence; none if nothing is.
std::optional<std::string> ProblemWith(const Property &property, const std::string &value);

} // namespace form_designer
